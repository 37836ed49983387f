#pragma once
// Keyboard, mouse and window events made of nothing but calls: they go into SDL's event
// queue as the window system's would, for tests of the real backend on SDL's dummy video
// driver. Keys go by the names SDL gives them ("A", "Keypad 5", "Left Alt").
#include <string>

namespace platform::virtual_input {

// False when SDL knows no key of that name (then nothing is sent).
bool Key(const std::string& name, bool down, bool alt = false, bool repeat = false);
void Text(const std::string& utf8);
void MouseMove(int x, int y);
enum class Button { Left, Middle, Right };
void MouseButton(Button button, bool down, int x, int y);
enum class WindowChange { FocusGained, FocusLost, Exposed };
void Window(WindowChange change);
// The window system asks the program to end (the window's close button).
void Quit();

}  // namespace platform::virtual_input
