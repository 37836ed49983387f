#include "screens/MenuInput.h"

#include "platform/Window.h"

namespace {

MenuInput ReadMenuInput(ObjectList& widgets, std::uint32_t message, platform::WParam wParam,
                        platform::LParam lParam) {
  MenuInput input;
  const int x = platform::PointX(lParam), y = platform::PointY(lParam);
  switch (message) {
    case platform::WM_LBUTTONDOWN:
    case platform::WM_RBUTTONDOWN: {
      const int hit = widgets.HitTest(x, y);
      input.moved = hit >= 0;
      if (hit != kHitNothing) {
        input.action = message == platform::WM_LBUTTONDOWN ? MenuAction::Choose : MenuAction::ChooseBackward;
      } else {
        input.missed = message == platform::WM_LBUTTONDOWN;
      }
      break;
    }
    case platform::WM_MOUSEMOVE:
      input.moved = widgets.HitTest(x, y) >= 0;
      break;
    case platform::WM_KEYDOWN:
      if (wParam == platform::VK_RETURN || wParam == platform::VK_SPACE) input.action = MenuAction::Choose;
      if (wParam == platform::VK_UP || wParam == platform::VK_DOWN) {
        widgets.Cycle(wParam == platform::VK_UP ? kCyclePrevious : kCycleNext);
        input.moved = true;
      }
      break;
  }
  return input;
}

bool NeedsRepaint(std::uint32_t message, const MenuInput& input) {
  const bool clicked = message == platform::WM_LBUTTONDOWN || message == platform::WM_RBUTTONDOWN;
  return clicked || input.moved || input.action != MenuAction::None;
}

}  // namespace

MenuInput AnswerMenuInput(ObjectList& widgets, platform::WindowHandle window, std::uint32_t message,
                          platform::WParam wParam, platform::LParam lParam,
                          const std::function<void(MenuAction)>& choose) {
  const MenuInput input = ReadMenuInput(widgets, message, wParam, lParam);
  if (input.action != MenuAction::None) choose(input.action);
  if (NeedsRepaint(message, input)) platform::InvalidateRect(window);
  return input;
}
