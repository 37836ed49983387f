#pragma once
// Builds Windows bitmap files in memory, so that tests can hand the reader every layout
// without data files: any depth, palettes, bit-field masks, either row order.
#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

struct BitmapSpec {
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
inline std::uint32_t PackDirect(const BitmapSpec& spec, std::uint32_t rgb) {
  const std::uint32_t r = rgb >> 16 & 0xFF, g = rgb >> 8 & 0xFF, b = rgb & 0xFF;
  if (spec.bits == 16 && spec.masks.empty()) return (r >> 3) << 10 | (g >> 3) << 5 | b >> 3;
  if (spec.bits == 16) return (r >> 3) << 11 | (g >> 2) << 5 | b >> 3;  // 5-6-5 masks
  return rgb;
}

inline std::vector<std::uint8_t> MakeBitmap(const BitmapSpec& spec) {
  const int rowBits = spec.width * spec.bits;
  const int stride = (rowBits + 31) / 32 * 4;
  const std::uint32_t paletteBytes = static_cast<std::uint32_t>(spec.palette.size()) * 4;
  const std::uint32_t maskBytes = static_cast<std::uint32_t>(spec.masks.size()) * 4;
  const std::uint32_t offset = 14 + 40 + maskBytes + paletteBytes;
  std::vector<std::uint8_t> out;
  out.push_back('B');
  out.push_back('M');
  PutLE(out, offset + stride * spec.height, 4);
  PutLE(out, 0, 4);
  PutLE(out, offset, 4);
  PutLE(out, 40, 4);
  PutLE(out, spec.width, 4);
  PutLE(out, static_cast<std::uint32_t>(spec.topDown ? -spec.height : spec.height), 4);
  PutLE(out, 1, 2);
  PutLE(out, spec.bits, 2);
  PutLE(out, spec.masks.empty() ? 0 : 3, 4);
  PutLE(out, stride * spec.height, 4);
  PutLE(out, 2835, 4);  // 72 dots per inch
  PutLE(out, 2835, 4);
  PutLE(out, static_cast<std::uint32_t>(spec.palette.size()), 4);  // colours used
  PutLE(out, 0, 4);
  for (std::uint32_t mask : spec.masks) PutLE(out, mask, 4);
  for (std::uint32_t colour : spec.palette) PutLE(out, colour, 4);  // B, G, R, 0
  for (int row = 0; row < spec.height; ++row) {
    const int y = spec.topDown ? row : spec.height - 1 - row;
    std::vector<std::uint8_t> line(stride, 0);
    for (int x = 0; x < spec.width; ++x) {
      const std::uint32_t v = spec.values[static_cast<std::size_t>(y) * spec.width + x];
      if (spec.bits < 8) {
        const int bit = x * spec.bits;
        line[bit / 8] |= static_cast<std::uint8_t>(v << (8 - spec.bits - bit % 8));
      } else if (spec.bits == 8) {
        line[x] = static_cast<std::uint8_t>(v);
      } else {
        const std::uint32_t packed = PackDirect(spec, v);
        for (int i = 0; i < spec.bits / 8; ++i) line[x * spec.bits / 8 + i] = static_cast<std::uint8_t>(packed >> (8 * i));
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
