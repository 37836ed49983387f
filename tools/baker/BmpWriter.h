#pragma once
// Encoding of a 24-bit Windows bitmap: file header, 40-byte info header, bottom-up rows
// of blue, green, red, each row padded with zeros to a multiple of 4 bytes.
#include <cstdint>
#include <vector>

#include "PixelRules.h"

namespace baker {

constexpr std::size_t kBmpHeaderSize = 14 + 40;

// The bytes of one stored row, padding included.
constexpr std::size_t BmpRowStride(int width) {
  return (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
}

std::vector<std::uint8_t> EncodeBmp24(const RgbImage& image);

}  // namespace baker
