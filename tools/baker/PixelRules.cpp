#include "PixelRules.h"

namespace baker {
namespace {

// c * a / 255, rounded to nearest.
std::uint8_t Scale(std::uint8_t c, std::uint8_t a) {
  return static_cast<std::uint8_t>((c * a + 127) / 255);
}

Rgb OntoBlack(Rgba in) { return {Scale(in.r, in.a), Scale(in.g, in.a), Scale(in.b, in.a)}; }

}  // namespace

std::optional<Mode> ParseMode(std::string_view name) {
  if (name == "opaque") return Mode::Opaque;
  if (name == "keyed") return Mode::Keyed;
  if (name == "additive") return Mode::Additive;
  return std::nullopt;
}

std::string_view ModeName(Mode mode) {
  switch (mode) {
    case Mode::Opaque: return "opaque";
    case Mode::Keyed: return "keyed";
    case Mode::Additive: return "additive";
  }
  return "?";
}

Rgb BakePixel(Mode mode, Rgba in) {
  switch (mode) {
    case Mode::Opaque:
    case Mode::Additive:
      return OntoBlack(in);
    case Mode::Keyed: {
      if (in.a < kKeepAlpha) return {0, 0, 0};
      // The colour the picture says, not darkened by partial coverage: a darkened edge
      // would draw a dark halo around the sprite.
      const Rgb kept{in.r, in.g, in.b};
      if (To565(kept) == 0) return kDarkestVisible;
      return kept;
    }
  }
  return {0, 0, 0};
}

RgbImage BakeImage(Mode mode, const RgbaImage& in) {
  RgbImage out;
  out.width = in.width;
  out.height = in.height;
  out.pixels.reserve(in.pixels.size());
  for (const Rgba& p : in.pixels) out.pixels.push_back(BakePixel(mode, p));
  return out;
}

}  // namespace baker
