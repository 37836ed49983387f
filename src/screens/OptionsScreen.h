#pragma once
// The three gameplay settings: the player's figure, the difficulty and the text speed.
// Pushed by the main menu and the pause menu; "Continue" goes back.
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class OptionsScreen : public GameMode {
 public:
  OptionsScreen(std::uint32_t id, const char* name);
  ~OptionsScreen() override;

  int Activate() override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  enum ButtonId { kGender = 0, kDifficulty = 1, kTextSpeed = 2, kContinue = 3 };
  ObjectList buttons;
  Picture background;

 private:
  // 1 steps the setting forward, -1 backward; the menu input repaints after it.
  void Choose(int direction);
  void SetCaptions();
  void Draw();
};
