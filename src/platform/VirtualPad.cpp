#include "platform/VirtualPad.h"

#include <SDL.h>

namespace platform {
namespace {

constexpr SDL_GameControllerButton kButtons[] = {
    SDL_CONTROLLER_BUTTON_A,       SDL_CONTROLLER_BUTTON_B,         SDL_CONTROLLER_BUTTON_X,
    SDL_CONTROLLER_BUTTON_Y,       SDL_CONTROLLER_BUTTON_BACK,      SDL_CONTROLLER_BUTTON_START,
    SDL_CONTROLLER_BUTTON_DPAD_UP, SDL_CONTROLLER_BUTTON_DPAD_DOWN, SDL_CONTROLLER_BUTTON_DPAD_LEFT,
    SDL_CONTROLLER_BUTTON_DPAD_RIGHT,
};

SDL_Joystick* Joystick(void* handle) { return static_cast<SDL_Joystick*>(handle); }

}  // namespace

VirtualPad::VirtualPad() {
  if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) return;
  SDL_VirtualJoystickDesc desc{};
  desc.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
  desc.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
  desc.naxes = SDL_CONTROLLER_AXIS_MAX;
  desc.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
  desc.button_mask = (1u << SDL_CONTROLLER_BUTTON_MAX) - 1;
  desc.axis_mask = (1u << SDL_CONTROLLER_AXIS_MAX) - 1;
  desc.name = "Quarnwick test pad";
  deviceIndex = SDL_JoystickAttachVirtualEx(&desc);
  if (deviceIndex >= 0) joystick = SDL_JoystickOpen(deviceIndex);
}

VirtualPad::~VirtualPad() {
  if (joystick) SDL_JoystickClose(Joystick(joystick));
  if (deviceIndex >= 0) SDL_JoystickDetachVirtual(deviceIndex);
  SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

void VirtualPad::SetButton(PadButton button, bool down) {
  const int index = static_cast<int>(button);
  if (!joystick || index < 0 || index >= static_cast<int>(PadButton::Count)) return;
  SDL_JoystickSetVirtualButton(Joystick(joystick), kButtons[index], down ? SDL_PRESSED : SDL_RELEASED);
}

void VirtualPad::SetStick(int x, int y) {
  if (!joystick) return;
  SDL_JoystickSetVirtualAxis(Joystick(joystick), SDL_CONTROLLER_AXIS_LEFTX, static_cast<Sint16>(x));
  SDL_JoystickSetVirtualAxis(Joystick(joystick), SDL_CONTROLLER_AXIS_LEFTY, static_cast<Sint16>(y));
}

}  // namespace platform
