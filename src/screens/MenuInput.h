#pragma once
// How the menu-like screens answer the mouse and the keys on their widgets: a click on a
// widget or Enter / Space chooses the current widget (a right click chooses it backward,
// where a screen knows a backward), Up and Down move the highlight, and a mouse move over
// a widget makes it current.
#include <cstdint>
#include <functional>

#include "platform/Messages.h"
#include "ui/ObjectList.h"

enum class MenuAction { None, Choose, ChooseBackward };

struct MenuInput {
  MenuAction action = MenuAction::None;
  bool moved = false;   // the highlight went to another widget
  bool missed = false;  // a left click beside every widget
};

// Reads the message, lets the screen choose when it chose, and then repaints the window
// after a click, a choice or a move of the highlight, so that a screen that draws only
// when it is painted shows the change at once. Returns what the message did, for screens
// that also answer a click beside their widgets.
MenuInput AnswerMenuInput(ObjectList& widgets, platform::WindowHandle window, std::uint32_t message,
                          platform::WParam wParam, platform::LParam lParam,
                          const std::function<void(MenuAction)>& choose);
