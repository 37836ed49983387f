#include "shell/WindowProcedure.h"

#include "platform/Window.h"
#include "shell/Globals.h"
#include "shell/ModeStack.h"
#include "ui/MousePointer.h"

namespace {

constexpr std::uint32_t kVirtualKeyM = 0x4D;

void Fatal(WindowHandle window, const char* text) {
  platform::MessageBox(window, text, "Game Failure", platform::MB_OK);
  platform::DestroyWindow(window);
}

// True while a change of screens is under way. Message boxes and DestroyWindow send
// messages back into the window procedure; those still reach the old screen, but must not
// carry out its request a second time.
bool changing = false;

void ChangeScreensNow(WindowHandle window) {
  GameMode* old = currentScreen;
  if (old->state == kStatePush) {
    old->Deactivate();
    if (pendingScreen) theModeStack->Push(pendingScreen);
    else Fatal(window, "No new game mode; expected one!");
  } else if (old->state == kStateLeave) {
    GameMode* popped = theModeStack->Pop();
    currentScreen = nullptr;  // messages sent while it goes must not reach a deleted screen
    popped->Deactivate();
    delete popped;
    if (pendingScreen) theModeStack->Push(pendingScreen);
    if (theModeStack->IsEmpty()) Fatal(window, "No game mode on stack; expected one!");
  } else {
    return;
  }
  currentScreen = theModeStack->Top();
  if (currentScreen) {
    currentScreen->Activate();
    currentScreen->state = kStateNone;
    platform::InvalidateRect(window);
  }
}

// Carries out the top screen's request after it has handled a message.
void ChangeScreens(WindowHandle window) {
  if (changing) return;
  changing = true;
  ChangeScreensNow(window);
  changing = false;
}

LResult HandleShortcut(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  --shortcutSkip;
  if (shortcutSkip == 1) return platform::DefWindowProc(window, message, wParam, lParam);
  switch (wParam) {
    case kVirtualKeyM:
      if (mutedVolume != 0) {
        effectsVolume = mutedVolume;
        mutedVolume = 0;
      } else {
        mutedVolume = effectsVolume;
        effectsVolume = 0;
      }
      break;
    case platform::VK_F11:
      shortcutSkip = 2;
      break;
    case platform::VK_F12:
      platform::DestroyWindow(window);
      return 0;
  }
  return platform::DefWindowProc(window, message, wParam, lParam);
}

}  // namespace

LResult WindowProcedure(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (currentScreen) {
    currentScreen->HandleMessage(window, message, wParam, lParam);
    ChangeScreens(window);
  }
  switch (message) {
    case platform::WM_DESTROY:
      platform::KillTimer(window, 1);
      platform::PostQuitMessage(0);
      break;
    case platform::WM_ACTIVATE:
      platform::SetTimer(window, 1, 0);
      break;
    case platform::WM_SETCURSOR:
      return 1;  // the system arrow never shows over the game's own pointer
    case platform::WM_KEYDOWN:
      return HandleShortcut(window, message, wParam, lParam);
    case platform::WM_MOUSEMOVE:
      if (theMousePointer) theMousePointer->MoveTo(platform::PointX(lParam), platform::PointY(lParam));
      return 0;
    case platform::WM_LBUTTONDOWN:
    case platform::WM_LBUTTONUP:
    case platform::WM_RBUTTONDOWN:
    case platform::WM_RBUTTONUP:
      return 0;
  }
  return platform::DefWindowProc(window, message, wParam, lParam);
}
