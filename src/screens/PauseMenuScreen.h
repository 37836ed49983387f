#pragma once
// The menu of a game in progress, opened from the world map: continue, save, the options,
// or quit the game back to the main menu.
#include "graphics/Picture.h"
#include "screens/MenuTune.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class PauseMenuScreen : public GameMode {
 public:
  PauseMenuScreen(std::uint32_t id, const char* name);
  ~PauseMenuScreen() override;

  int Activate() override;
  int Deactivate() override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  enum ButtonId { kContinueGame = 0, kSaveGame = 1, kOptions = 2, kQuitGame = 3 };
  ObjectList buttons;
  Picture background;
  MenuTune tune;
  int dialogOpen = 0;

 private:
  void Choose();
  void Leave();
  void Draw();
};
