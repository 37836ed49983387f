#include "screens/MessageScreen.h"

#include "graphics/Text.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"

MessageScreen::MessageScreen(std::uint32_t id, const char* name, const char* message, const char* pictureFile)
    : GameMode(id, name), buttons(PackColour(180, 180, 230), PackColour(100, 255, 100)), text(message ? message : "") {
  buttons.Add(new Button(0, "Continue", 64, 220, 370, 420, 395, 2));
  picture.LoadPicture(pictureFile);
}

MessageScreen::~MessageScreen() = default;

int MessageScreen::Activate() {
  Draw();
  return 1;
}

int MessageScreen::Deactivate() { return 0; }

int MessageScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult MessageScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  const MenuInput input =
      AnswerMenuInput(buttons, window, message, wParam, lParam, [this](MenuAction) { Continue(); });
  // Without a text there is no button to see: a click anywhere goes back.
  if (input.missed && text.empty()) {
    PlayClick();
    Leave();
  }
  return 0;
}

void MessageScreen::Continue() {
  if (!buttons.current || buttons.current->GetId() != 0) return;
  PlayClick();
  Leave();
}

void MessageScreen::Leave() {
  pendingScreen = nullptr;
  state = kStateLeave;
}

void MessageScreen::Draw() {
  BeginFrame();
  picture.DrawOpaque(0, 0, 1);
  SetTextColour(255, 255, 255);
  if (!text.empty()) {
    DrawTextBox(2, text.c_str(), {120, 80, 520, 370}, nullptr, DT_CENTER | DT_WORDBREAK);
    buttons.DrawAll();
  }
  EndFrame();
}
