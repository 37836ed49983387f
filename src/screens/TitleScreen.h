#pragma once
// The first screen of the game until the main menu takes its place: the title over the
// menu background.
#include "graphics/Picture.h"
#include "shell/GameMode.h"

class TitleScreen : public GameMode {
 public:
  TitleScreen(std::uint32_t id, const char* name);
  ~TitleScreen() override;

  int Activate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

 private:
  void Draw();

  Picture background;
};
