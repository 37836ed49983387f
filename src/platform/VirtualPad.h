#pragma once
// A game controller made of nothing but calls: SDL's virtual joystick with the standard
// controller layout, for tests of the real backend on SDL's dummy drivers. Its input
// reaches the game as a plugged-in controller's would.
#include "platform/Gamepad.h"

namespace platform {

class VirtualPad {
 public:
  VirtualPad();
  ~VirtualPad();
  VirtualPad(const VirtualPad&) = delete;
  VirtualPad& operator=(const VirtualPad&) = delete;

  bool Attached() const { return joystick != nullptr; }
  void SetButton(PadButton button, bool down);
  void SetStick(int x, int y);

 private:
  void* joystick = nullptr;  // the SDL joystick
  int deviceIndex = -1;
};

}  // namespace platform
