#pragma once
// A full-screen picture with a centred block of text and a "Continue" button; continuing
// goes back to the screen below. The credits are shown with it.
#include <string>

#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class MessageScreen : public GameMode {
 public:
  // The screen keeps its own copy of the text: a screen that leaves may put a message
  // screen in its place.
  MessageScreen(std::uint32_t id, const char* name, const char* text, const char* pictureFile);
  ~MessageScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  ObjectList buttons;
  Picture picture;
  std::string text;

 private:
  void Draw();
  void Continue();
  void Leave();
};
