#include "screens/MessageScreen.h"

#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/Frame.h"
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
  const int x = platform::PointX(lParam), y = platform::PointY(lParam);
  const bool empty = text.empty();
  switch (message) {
    case platform::WM_LBUTTONDOWN:
      if (buttons.HitTest(x, y) != kHitNothing) {
        Continue();
      } else if (empty) {
        PlayClick();
        Leave();
      }
      break;
    case platform::WM_RBUTTONDOWN:
      if (buttons.HitTest(x, y) != kHitNothing) Continue();
      break;
    case platform::WM_MOUSEMOVE:
      buttons.HitTest(x, y);
      break;
    case platform::WM_KEYDOWN:
      if (wParam == platform::VK_RETURN || wParam == platform::VK_SPACE) Continue();
      if (wParam == platform::VK_UP || wParam == platform::VK_DOWN) {
        buttons.Cycle(wParam == platform::VK_UP ? kCyclePrevious : kCycleNext);
        platform::InvalidateRect(window);
      }
      break;
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
