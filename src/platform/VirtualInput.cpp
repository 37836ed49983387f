#include "platform/VirtualInput.h"

#include <SDL.h>

namespace platform::virtual_input {
namespace {

void Push(SDL_Event& e) {
  e.common.timestamp = SDL_GetTicks();
  SDL_PushEvent(&e);
}

}  // namespace

bool Key(const std::string& name, bool down, bool alt, bool repeat) {
  const SDL_Keycode key = SDL_GetKeyFromName(name.c_str());
  if (key == SDLK_UNKNOWN) return false;
  SDL_Event e{};
  e.type = down ? SDL_KEYDOWN : SDL_KEYUP;
  e.key.state = down ? SDL_PRESSED : SDL_RELEASED;
  e.key.repeat = repeat ? 1 : 0;
  e.key.keysym.sym = key;
  e.key.keysym.scancode = SDL_GetScancodeFromKey(key);
  e.key.keysym.mod = alt ? KMOD_LALT : KMOD_NONE;
  Push(e);
  return true;
}

void Text(const std::string& utf8) {
  SDL_Event e{};
  e.type = SDL_TEXTINPUT;
  SDL_strlcpy(e.text.text, utf8.c_str(), sizeof e.text.text);
  Push(e);
}

void MouseMove(int x, int y) {
  SDL_Event e{};
  e.type = SDL_MOUSEMOTION;
  e.motion.x = x;
  e.motion.y = y;
  Push(e);
}

void MouseButton(Button button, bool down, int x, int y) {
  SDL_Event e{};
  e.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
  e.button.button = button == Button::Left ? SDL_BUTTON_LEFT : button == Button::Right ? SDL_BUTTON_RIGHT
                                                                                       : SDL_BUTTON_MIDDLE;
  e.button.state = down ? SDL_PRESSED : SDL_RELEASED;
  e.button.clicks = 1;
  e.button.x = x;
  e.button.y = y;
  Push(e);
}

void Window(WindowChange change) {
  SDL_Event e{};
  e.type = SDL_WINDOWEVENT;
  e.window.event = change == WindowChange::FocusGained ? SDL_WINDOWEVENT_FOCUS_GAINED
                   : change == WindowChange::FocusLost ? SDL_WINDOWEVENT_FOCUS_LOST
                                                       : SDL_WINDOWEVENT_EXPOSED;
  Push(e);
}

void Quit() {
  SDL_Event e{};
  e.type = SDL_QUIT;
  Push(e);
}

}  // namespace platform::virtual_input
