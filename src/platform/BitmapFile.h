#pragma once
// Reader of Windows bitmap files of every common depth (1, 4, 8, 16, 24 and 32 bits,
// uncompressed, with bit-field masks, or 4 and 8 bits with run lengths; bottom-up or
// top-down), converted to 5-6-5 by truncating each channel, the way the display drivers
// converted them.
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

struct Image565 {
  int width = 0;
  int height = 0;
  std::vector<std::uint16_t> pixels;  // row by row, top row first
};

// Any malformed, truncated or unsupported input gives nullopt; nothing is reported.
std::optional<Image565> DecodeBitmap(std::span<const std::uint8_t> bytes);
std::optional<Image565> LoadBitmapFile(const std::string& path);

}  // namespace platform
