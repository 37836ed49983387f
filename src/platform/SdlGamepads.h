#pragma once
// The game controllers of the SDL backend: opened as they are plugged in, closed as they
// go, their events handed to the gamepad translation. Controller mappings come from SDL's
// database; SDL_GAMECONTROLLERCONFIG adds more.
#include <SDL.h>

#include <map>

#include "platform/Gamepad.h"

namespace platform {

class SdlGamepads {
 public:
  SdlGamepads();
  ~SdlGamepads();
  SdlGamepads(const SdlGamepads&) = delete;
  SdlGamepads& operator=(const SdlGamepads&) = delete;

  // True when the event was a controller's (or a mouse move the pointer must follow).
  bool Handle(const SDL_Event& event, std::uint32_t now);
  void Update(std::uint32_t now) { input.Update(now); }
  bool Busy() const { return input.Busy(); }

 private:
  GamepadInput input;
  std::map<SDL_JoystickID, SDL_GameController*> open;
  bool started = false;
  int stickX = 0, stickY = 0;
};

}  // namespace platform
