#pragma once
// The base of every screen. The shell drives a screen through Activate, Deactivate, Tick
// and HandleMessage; a screen asks for a change of screens only through its state and the
// global pendingScreen: 1 pushes the pending screen above it, 2 removes it (and then pushes
// the pending screen, when there is one).
#include <cstdint>

#include "platform/Messages.h"
#include "shell/ScreenObject.h"

using platform::LParam;
using platform::LResult;
using platform::WindowHandle;
using platform::WParam;

class GameMode : public ScreenObject {
 public:
  GameMode(std::uint32_t id, const char* name);
  ~GameMode() override;

  virtual int HookC();
  // Draws the screen once, so that a new top is visible at once.
  virtual int Activate();
  virtual int Deactivate();
  // Once per frame with the millisecond clock, for the top screen only.
  virtual int Tick(std::uint32_t now);
  // Every message, before the window procedure's own handling.
  virtual LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam);

  std::int32_t state = 0;
};

inline constexpr std::int32_t kStateNone = 0;
inline constexpr std::int32_t kStatePush = 1;
inline constexpr std::int32_t kStateLeave = 2;
