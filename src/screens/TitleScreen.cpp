#include "screens/TitleScreen.h"

#include "graphics/Text.h"
#include "shell/Globals.h"
#include "ui/MousePointer.h"

TitleScreen::TitleScreen(std::uint32_t id, const char* name) : GameMode(id, name) {
  background.LoadPicture("dat\\back1.bmp");
}

TitleScreen::~TitleScreen() = default;

int TitleScreen::Activate() {
  Draw();
  return 1;
}

int TitleScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult TitleScreen::HandleMessage(WindowHandle, std::uint32_t message, WParam, LParam) {
  if (message == platform::WM_PAINT) Draw();
  return 0;
}

void TitleScreen::Draw() {
  if (theMousePointer) theMousePointer->Show(0);
  if (background.Width() > 0) {
    background.DrawOpaque(0, 0, 1);
  } else {
    theDisplay->ClearScreen(28, 35, 64);
  }
  SetTextTransparent(1);
  SetTextColour(20, 24, 48);
  DrawTextBox(3, "Quarnwick", {2, 62, 642, 100}, nullptr, DT_CENTER);
  SetTextColour(255, 230, 120);
  DrawTextBox(3, "Quarnwick", {0, 60, 640, 100}, nullptr, DT_CENTER);
  SetTextColour(230, 230, 255);
  DrawTextBox(1, "Kindrels, spells and six wizards", {0, 104, 640, 124}, nullptr, DT_CENTER);
  SetTextColour(180, 180, 230);
  DrawTextBox(2, "Press F12 to quit", {0, 400, 640, 430}, nullptr, DT_CENTER);
  SetTextColour(255, 255, 255);
  if (theMousePointer) theMousePointer->Show(1);
  theDisplay->Present();
}
