#pragma once
// The first screen of the game until the main menu takes its place: the title over the
// menu background, with sparks rising from the title and two buttons.
#include "graphics/Particles.h"
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class TitleScreen : public GameMode {
 public:
  TitleScreen(std::uint32_t id, const char* name);
  ~TitleScreen() override;

  int Activate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  enum ButtonId { kSparks = 0, kQuit = 1 };
  ObjectList widgets;
  int sparksOn = 1;

 private:
  void Draw();
  void Choose(WindowHandle window);

  Picture background;
  ParticlePool sparks{400};
  ParticleEmitter emitter;
};
