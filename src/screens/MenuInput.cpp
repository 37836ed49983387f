#include "screens/MenuInput.h"

MenuInput ReadMenuInput(ObjectList& buttons, std::uint32_t message, platform::WParam wParam, platform::LParam lParam) {
  MenuInput input;
  const int x = platform::PointX(lParam), y = platform::PointY(lParam);
  switch (message) {
    case platform::WM_LBUTTONDOWN:
    case platform::WM_RBUTTONDOWN: {
      input.mouse = true;
      const int hit = buttons.HitTest(x, y);
      input.moved = hit >= 0;
      if (hit != kHitNothing) {
        input.action = message == platform::WM_LBUTTONDOWN ? MenuAction::Choose : MenuAction::ChooseBackward;
      }
      break;
    }
    case platform::WM_MOUSEMOVE:
      input.mouse = true;
      input.moved = buttons.HitTest(x, y) >= 0;
      break;
    case platform::WM_KEYDOWN:
      if (wParam == platform::VK_RETURN || wParam == platform::VK_SPACE) input.action = MenuAction::Choose;
      if (wParam == platform::VK_UP || wParam == platform::VK_DOWN) {
        buttons.Cycle(wParam == platform::VK_UP ? kCyclePrevious : kCycleNext);
        input.moved = true;
      }
      break;
  }
  return input;
}
