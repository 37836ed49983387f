#include "platform/Gamepad.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/Window.h"

namespace platform {
namespace {

constexpr int kDeadZone = 8000;
constexpr float kFastest = 700.0f;  // pixels a second at full tilt
constexpr std::uint32_t kRepeatDelay = 350, kRepeatEvery = 100;

// 0 inside the dead zone, then growing with the square of the tilt up to 1.
float Tilt(int value) {
  const int magnitude = std::abs(value);
  if (magnitude <= kDeadZone) return 0.0f;
  const float t = static_cast<float>(magnitude - kDeadZone) / static_cast<float>(32767 - kDeadZone);
  const float curved = std::min(t, 1.0f) * std::min(t, 1.0f);
  return value < 0 ? -curved : curved;
}

std::uint32_t ArrowOf(PadButton button) {
  switch (button) {
    case PadButton::Up: return VK_UP;
    case PadButton::Down: return VK_DOWN;
    case PadButton::Left: return VK_LEFT;
    case PadButton::Right: return VK_RIGHT;
    default: return 0;
  }
}

}  // namespace

void GamepadInput::MouseAt(int mx, int my) {
  x = static_cast<float>(mx);
  y = static_cast<float>(my);
}

std::uint32_t GamepadInput::Buttons() const {
  return (held[static_cast<int>(PadButton::A)] ? MK_LBUTTON : 0) | (held[static_cast<int>(PadButton::B)] ? MK_RBUTTON : 0);
}

void GamepadInput::Key(std::uint32_t virtualKey, bool down) {
  if (!down) {
    PostInput(WM_KEYUP, virtualKey, static_cast<LParam>(0xC0000001u));
    return;
  }
  PostInput(WM_KEYDOWN, virtualKey, 1);
  if (virtualKey == VK_RETURN || virtualKey == VK_SPACE) PostInput(WM_CHAR, virtualKey, 1);
}

void GamepadInput::Mouse(std::uint32_t message) {
  PostInput(message, Buttons(), PackPoint(static_cast<int>(x), static_cast<int>(y)));
}

void GamepadInput::Button(PadButton button, bool down, std::uint32_t now) {
  const int index = static_cast<int>(button);
  if (index < 0 || index >= static_cast<int>(PadButton::Count) || held[index] == down) return;
  held[index] = down;
  const bool quitting = held[static_cast<int>(PadButton::Back)] && held[static_cast<int>(PadButton::Start)];
  switch (button) {
    case PadButton::A: Mouse(down ? WM_LBUTTONDOWN : WM_LBUTTONUP); break;
    case PadButton::B: Mouse(down ? WM_RBUTTONDOWN : WM_RBUTTONUP); break;
    case PadButton::X: Key(VK_RETURN, down); break;
    case PadButton::Y: Key(VK_SPACE, down); break;
    case PadButton::Back:
    case PadButton::Start:
      if (down && quitting) Key(VK_F12, true);
      else if (button == PadButton::Start) Key(VK_RETURN, down);
      break;
    default: {
      const std::uint32_t arrow = ArrowOf(button);
      Key(arrow, down);
      if (down) {
        repeatingKey = static_cast<int>(arrow);
        nextRepeat = now + kRepeatDelay;
      } else if (repeatingKey == static_cast<int>(arrow)) {
        repeatingKey = 0;
      }
    }
  }
}

void GamepadInput::Stick(int sx, int sy, std::uint32_t now) {
  if (!Busy()) lastUpdate = now;  // the pointer starts moving from now on
  stickX = sx;
  stickY = sy;
}

bool GamepadInput::Busy() const { return Tilt(stickX) != 0.0f || Tilt(stickY) != 0.0f || repeatingKey != 0; }

void GamepadInput::Update(std::uint32_t now) {
  const float seconds = static_cast<float>(now - lastUpdate) / 1000.0f;
  lastUpdate = now;
  if (Tilt(stickX) != 0.0f || Tilt(stickY) != 0.0f) {
    const int oldX = static_cast<int>(x), oldY = static_cast<int>(y);
    x = std::clamp(x + Tilt(stickX) * kFastest * seconds, 0.0f, 639.0f);
    y = std::clamp(y + Tilt(stickY) * kFastest * seconds, 0.0f, 479.0f);
    if (static_cast<int>(x) != oldX || static_cast<int>(y) != oldY) Mouse(WM_MOUSEMOVE);
  }
  if (repeatingKey != 0 && static_cast<std::int32_t>(now - nextRepeat) >= 0) {
    PostInput(WM_KEYDOWN, static_cast<std::uint32_t>(repeatingKey), static_cast<LParam>(0x40000001));
    nextRepeat = now + kRepeatEvery;
  }
}

}  // namespace platform
