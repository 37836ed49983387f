#pragma once
// Builds Windows bitmap files in memory, so that tests can hand the reader every layout
// without data files: any depth, palettes, bit-field masks, either row order.
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

struct BitmapLayout {
  int width = 0;
  int height = 0;
  int bits = 24;
  bool topDown = false;
  std::vector<std::uint32_t> palette;    // 0xRRGGBB, for 1, 4 and 8 bits
  std::vector<std::uint32_t> values;     // per pixel, top row first: palette index or 0xRRGGBB
  std::vector<std::uint32_t> masks;      // red, green, blue masks: bit fields for 16 and 32 bits
};

inline void PutLE(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// A pixel value in the file's layout for 16 and 32 bits.
inline std::uint32_t PackDirect(const BitmapLayout& layout, std::uint32_t rgb) {
  const std::uint32_t r = rgb >> 16 & 0xFF, g = rgb >> 8 & 0xFF, b = rgb & 0xFF;
  if (layout.bits == 16 && layout.masks.empty()) return (r >> 3) << 10 | (g >> 3) << 5 | b >> 3;
  if (layout.bits == 16) return (r >> 3) << 11 | (g >> 2) << 5 | b >> 3;  // 5-6-5 masks
  return rgb;
}

inline std::vector<std::uint8_t> MakeBitmap(const BitmapLayout& layout) {
  const int rowBits = layout.width * layout.bits;
  const int stride = (rowBits + 31) / 32 * 4;
  const std::uint32_t paletteBytes = static_cast<std::uint32_t>(layout.palette.size()) * 4;
  const std::uint32_t maskBytes = static_cast<std::uint32_t>(layout.masks.size()) * 4;
  const std::uint32_t offset = 14 + 40 + maskBytes + paletteBytes;
  std::vector<std::uint8_t> out;
  out.push_back('B');
  out.push_back('M');
  PutLE(out, offset + stride * layout.height, 4);
  PutLE(out, 0, 4);
  PutLE(out, offset, 4);
  PutLE(out, 40, 4);
  PutLE(out, layout.width, 4);
  PutLE(out, static_cast<std::uint32_t>(layout.topDown ? -layout.height : layout.height), 4);
  PutLE(out, 1, 2);
  PutLE(out, layout.bits, 2);
  PutLE(out, layout.masks.empty() ? 0 : 3, 4);
  PutLE(out, stride * layout.height, 4);
  PutLE(out, 2835, 4);  // 72 dots per inch
  PutLE(out, 2835, 4);
  PutLE(out, static_cast<std::uint32_t>(layout.palette.size()), 4);  // colours used
  PutLE(out, 0, 4);
  for (std::uint32_t mask : layout.masks) PutLE(out, mask, 4);
  for (std::uint32_t colour : layout.palette) PutLE(out, colour, 4);  // B, G, R, 0
  for (int row = 0; row < layout.height; ++row) {
    const int y = layout.topDown ? row : layout.height - 1 - row;
    std::vector<std::uint8_t> line(stride, 0);
    for (int x = 0; x < layout.width; ++x) {
      const std::uint32_t v = layout.values[static_cast<std::size_t>(y) * layout.width + x];
      if (layout.bits < 8) {
        const int bit = x * layout.bits;
        line[bit / 8] |= static_cast<std::uint8_t>(v << (8 - layout.bits - bit % 8));
      } else if (layout.bits == 8) {
        line[x] = static_cast<std::uint8_t>(v);
      } else {
        const std::uint32_t packed = PackDirect(layout, v);
        for (int i = 0; i < layout.bits / 8; ++i) line[x * layout.bits / 8 + i] = static_cast<std::uint8_t>(packed >> (8 * i));
      }
    }
    out.insert(out.end(), line.begin(), line.end());
  }
  return out;
}

inline void WriteFile(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<std::streamsize>(bytes.size()));
}
