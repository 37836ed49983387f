#pragma once
// How the menus answer the mouse and the keys on their column of buttons: a click on a
// button or Enter / Space chooses the current button (a right click chooses it backward,
// where a menu knows a backward), Up and Down move the highlight.
#include <cstdint>

#include "platform/Messages.h"
#include "platform/Window.h"
#include "ui/ObjectList.h"

enum class MenuAction { None, Choose, ChooseBackward };

struct MenuInput {
  MenuAction action = MenuAction::None;
  bool moved = false;  // the highlight went to another button
  bool mouse = false;  // a mouse message
};

MenuInput ReadMenuInput(ObjectList& buttons, std::uint32_t message, platform::WParam wParam, platform::LParam lParam);

// The whole answer of a place screen: reads the input, chooses, and repaints the window
// after a click, a choice or a move of the highlight.
template <typename Choose>
void AnswerMenuInput(ObjectList& buttons, platform::WindowHandle window, std::uint32_t message, platform::WParam wParam,
                     platform::LParam lParam, Choose choose) {
  const MenuInput input = ReadMenuInput(buttons, message, wParam, lParam);
  if (input.action != MenuAction::None) choose();
  const bool clicked = message == platform::WM_LBUTTONDOWN || message == platform::WM_RBUTTONDOWN;
  if (clicked || input.moved || input.action != MenuAction::None) platform::InvalidateRect(window);
}
