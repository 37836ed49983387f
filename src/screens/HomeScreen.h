#pragma once
// The player's home on the island: the party spends the night there and wakes up fully
// healed. The party is healed once per visit, when the screen is made; the player can then
// look at each Kindrel (and reorder the party) before leaving with "EXIT".
#include "audio/SoundEffect.h"
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class HomeScreen : public GameMode {
 public:
  HomeScreen(std::uint32_t id, const char* name);
  ~HomeScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kExit = 0, kFirstBox = 1 };

  ObjectList widgets;
  Picture background;
  Picture frame;
  SoundEffect* fanfare = nullptr;

 private:
  void Choose();
  void Draw();
};
