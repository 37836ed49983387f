#pragma once
// Colours as the game passes them around: one number packed as r | g << 8 | b << 16.
#include <cstdint>

#include "platform/Surface.h"

namespace platform {

inline constexpr std::uint32_t PackColour(int r, int g, int b) {
  return static_cast<std::uint32_t>(r & 0xFF) | (static_cast<std::uint32_t>(g & 0xFF) << 8) |
         (static_cast<std::uint32_t>(b & 0xFF) << 16);
}
inline constexpr int PackedRed(std::uint32_t colour) { return static_cast<int>(colour & 0xFF); }
inline constexpr int PackedGreen(std::uint32_t colour) { return static_cast<int>((colour >> 8) & 0xFF); }
inline constexpr int PackedBlue(std::uint32_t colour) { return static_cast<int>((colour >> 16) & 0xFF); }
// The 5-6-5 pixel of the colour.
inline constexpr std::uint16_t PackedTo565(std::uint32_t colour) {
  return Rgb565(PackedRed(colour), PackedGreen(colour), PackedBlue(colour));
}

}  // namespace platform
