#pragma once
// Window messages and virtual-key codes. They keep their classic numeric values because
// the game compares against them and posts them (a screen that wants to quit posts F12).
#include <cstdint>

namespace platform {

using WindowHandle = std::uint32_t;  // 0: no window; the game has one main window
using WParam = std::uintptr_t;
using LParam = std::intptr_t;
using LResult = std::intptr_t;
using WindowProc = LResult (*)(WindowHandle, std::uint32_t, WParam, LParam);

struct Message {
  WindowHandle window = 0;
  std::uint32_t message = 0;
  WParam wParam = 0;
  LParam lParam = 0;
};

inline constexpr std::uint32_t WM_DESTROY = 0x0002;
inline constexpr std::uint32_t WM_ACTIVATE = 0x0006;
inline constexpr std::uint32_t WM_PAINT = 0x000F;
inline constexpr std::uint32_t WM_CLOSE = 0x0010;
inline constexpr std::uint32_t WM_QUIT = 0x0012;
inline constexpr std::uint32_t WM_SETCURSOR = 0x0020;
inline constexpr std::uint32_t WM_KEYDOWN = 0x0100;
inline constexpr std::uint32_t WM_KEYUP = 0x0101;
inline constexpr std::uint32_t WM_CHAR = 0x0102;
inline constexpr std::uint32_t WM_TIMER = 0x0113;
inline constexpr std::uint32_t WM_MOUSEMOVE = 0x0200;
inline constexpr std::uint32_t WM_LBUTTONDOWN = 0x0201;
inline constexpr std::uint32_t WM_LBUTTONUP = 0x0202;
inline constexpr std::uint32_t WM_LBUTTONDBLCLK = 0x0203;
inline constexpr std::uint32_t WM_RBUTTONDOWN = 0x0204;
inline constexpr std::uint32_t WM_RBUTTONUP = 0x0205;

// Button state bits of mouse messages' wParam.
inline constexpr WParam MK_LBUTTON = 0x0001;
inline constexpr WParam MK_RBUTTON = 0x0002;

inline constexpr std::uint32_t VK_BACK = 0x08;
inline constexpr std::uint32_t VK_TAB = 0x09;
inline constexpr std::uint32_t VK_RETURN = 0x0D;
inline constexpr std::uint32_t VK_SHIFT = 0x10;
inline constexpr std::uint32_t VK_CONTROL = 0x11;
inline constexpr std::uint32_t VK_MENU = 0x12;
inline constexpr std::uint32_t VK_ESCAPE = 0x1B;
inline constexpr std::uint32_t VK_SPACE = 0x20;
inline constexpr std::uint32_t VK_PRIOR = 0x21;
inline constexpr std::uint32_t VK_NEXT = 0x22;
inline constexpr std::uint32_t VK_END = 0x23;
inline constexpr std::uint32_t VK_HOME = 0x24;
inline constexpr std::uint32_t VK_LEFT = 0x25;
inline constexpr std::uint32_t VK_UP = 0x26;
inline constexpr std::uint32_t VK_RIGHT = 0x27;
inline constexpr std::uint32_t VK_DOWN = 0x28;
inline constexpr std::uint32_t VK_INSERT = 0x2D;
inline constexpr std::uint32_t VK_DELETE = 0x2E;
inline constexpr std::uint32_t VK_NUMPAD0 = 0x60;  // .. VK_NUMPAD9 = 0x69
inline constexpr std::uint32_t VK_MULTIPLY = 0x6A;
inline constexpr std::uint32_t VK_ADD = 0x6B;
inline constexpr std::uint32_t VK_SUBTRACT = 0x6D;
inline constexpr std::uint32_t VK_DECIMAL = 0x6E;
inline constexpr std::uint32_t VK_DIVIDE = 0x6F;
inline constexpr std::uint32_t VK_F1 = 0x70;  // .. VK_F12 = 0x7B
inline constexpr std::uint32_t VK_F11 = 0x7A;
inline constexpr std::uint32_t VK_F12 = 0x7B;

// Mouse positions travel packed as x | y << 16, each a signed 16-bit value.
inline constexpr LParam PackPoint(int x, int y) {
  return static_cast<LParam>(static_cast<std::uint32_t>(static_cast<std::uint16_t>(x)) |
                             (static_cast<std::uint32_t>(static_cast<std::uint16_t>(y)) << 16));
}
inline constexpr int PointX(LParam lParam) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(lParam) & 0xFFFF);
}
inline constexpr int PointY(LParam lParam) {
  return static_cast<std::int16_t>((static_cast<std::uint32_t>(lParam) >> 16) & 0xFFFF);
}

}  // namespace platform
