#include "platform/SdlGamepads.h"

namespace platform {
namespace {

bool PadButtonOf(Uint8 button, PadButton* out) {
  switch (button) {
    case SDL_CONTROLLER_BUTTON_A: *out = PadButton::A; return true;
    case SDL_CONTROLLER_BUTTON_B: *out = PadButton::B; return true;
    case SDL_CONTROLLER_BUTTON_X: *out = PadButton::X; return true;
    case SDL_CONTROLLER_BUTTON_Y: *out = PadButton::Y; return true;
    case SDL_CONTROLLER_BUTTON_BACK: *out = PadButton::Back; return true;
    case SDL_CONTROLLER_BUTTON_START: *out = PadButton::Start; return true;
    case SDL_CONTROLLER_BUTTON_DPAD_UP: *out = PadButton::Up; return true;
    case SDL_CONTROLLER_BUTTON_DPAD_DOWN: *out = PadButton::Down; return true;
    case SDL_CONTROLLER_BUTTON_DPAD_LEFT: *out = PadButton::Left; return true;
    case SDL_CONTROLLER_BUTTON_DPAD_RIGHT: *out = PadButton::Right; return true;
    default: return false;
  }
}

}  // namespace

SdlGamepads::SdlGamepads() { started = SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER) == 0; }

SdlGamepads::~SdlGamepads() {
  for (auto& [id, controller] : open) SDL_GameControllerClose(controller);
  if (started) SDL_QuitSubSystem(SDL_INIT_GAMECONTROLLER);
}

bool SdlGamepads::Handle(const SDL_Event& e, std::uint32_t now) {
  switch (e.type) {
    case SDL_CONTROLLERDEVICEADDED:
      if (SDL_GameController* controller = SDL_GameControllerOpen(e.cdevice.which))
        open[SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(controller))] = controller;
      return true;
    case SDL_CONTROLLERDEVICEREMOVED:
      if (auto found = open.find(e.cdevice.which); found != open.end()) {
        SDL_GameControllerClose(found->second);
        open.erase(found);
      }
      return true;
    case SDL_CONTROLLERBUTTONDOWN:
    case SDL_CONTROLLERBUTTONUP: {
      PadButton button;
      if (PadButtonOf(e.cbutton.button, &button)) input.Button(button, e.type == SDL_CONTROLLERBUTTONDOWN, now);
      return true;
    }
    case SDL_CONTROLLERAXISMOTION:
      if (e.caxis.axis == SDL_CONTROLLER_AXIS_LEFTX) stickX = e.caxis.value;
      if (e.caxis.axis == SDL_CONTROLLER_AXIS_LEFTY) stickY = e.caxis.value;
      input.Stick(stickX, stickY, now);
      return true;
    case SDL_MOUSEMOTION:
      input.MouseAt(e.motion.x, e.motion.y);
      return false;
    default:
      return false;
  }
}

}  // namespace platform
