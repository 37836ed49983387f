#pragma once
// How one rendered pixel (straight, un-premultiplied RGBA, as a PNG stores it) becomes one
// pixel of a 24-bit bitmap, for each way the game draws a picture. No file I/O here.
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace baker {

enum class Mode {
  Opaque,    // backgrounds: flattened onto black
  Keyed,     // sprites, widgets, frames, tiles: black (0, 0, 0) is the transparent key
  Additive,  // glows, clouds: premultiplied onto black, since black adds nothing
};

std::optional<Mode> ParseMode(std::string_view name);
std::string_view ModeName(Mode mode);

struct Rgba {
  std::uint8_t r = 0, g = 0, b = 0, a = 0;
  friend bool operator==(const Rgba&, const Rgba&) = default;
};

struct Rgb {
  std::uint8_t r = 0, g = 0, b = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// Keyed pictures keep a pixel when at least half of it is covered.
constexpr std::uint8_t kKeepAlpha = 128;

// The 5-6-5 value the game makes of a 24-bit colour: each channel truncated.
constexpr std::uint16_t To565(Rgb c) {
  return static_cast<std::uint16_t>(((c.r >> 3) << 11) | ((c.g >> 2) << 5) | (c.b >> 3));
}

// The darkest colour whose 5-6-5 value is not the key: blue 1 of 31 (value 1), both the
// smallest value and the least bright of the three one-step colours.
constexpr Rgb kDarkestVisible{0, 0, 8};

Rgb BakePixel(Mode mode, Rgba in);

struct RgbaImage {
  int width = 0;
  int height = 0;
  std::vector<Rgba> pixels;  // row by row, top row first
};

struct RgbImage {
  int width = 0;
  int height = 0;
  std::vector<Rgb> pixels;  // row by row, top row first
};

RgbImage BakeImage(Mode mode, const RgbaImage& in);

}  // namespace baker
