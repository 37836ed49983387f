// The baker's pixel rules, one rendered pixel (straight alpha) at a time.
#include <gtest/gtest.h>

#include "PixelRules.h"

namespace baker {
namespace {

TEST(PixelRules, ModesParseByTheirManifestNames) {
  EXPECT_EQ(ParseMode("opaque"), Mode::Opaque);
  EXPECT_EQ(ParseMode("keyed"), Mode::Keyed);
  EXPECT_EQ(ParseMode("additive"), Mode::Additive);
  EXPECT_FALSE(ParseMode("Keyed"));
  EXPECT_FALSE(ParseMode("key"));
  EXPECT_FALSE(ParseMode(""));
  for (Mode m : {Mode::Opaque, Mode::Keyed, Mode::Additive}) EXPECT_EQ(ParseMode(ModeName(m)), m);
}

TEST(PixelRules, KeyedDropsPixelsUnderHalfCoverageAndKeepsTheColourOfTheRest) {
  // An edge pixel keeps the colour the picture says; darkening it by its coverage would
  // ring the sprite with a dark halo.
  for (int a = 0; a < 256; ++a) {
    const Rgb out = BakePixel(Mode::Keyed, {200, 150, 100, static_cast<std::uint8_t>(a)});
    EXPECT_EQ(out, (a < 128 ? Rgb{0, 0, 0} : Rgb{200, 150, 100})) << "alpha " << a;
  }
  // Near black is lifted at any coverage that keeps it, to the darkest non-zero value.
  EXPECT_EQ(BakePixel(Mode::Keyed, {0, 0, 0, 128}), kDarkestVisible);
  EXPECT_EQ(BakePixel(Mode::Keyed, {5, 1, 2, 200}), kDarkestVisible);
  EXPECT_EQ(To565(kDarkestVisible), 1);
}

TEST(PixelRules, EveryCoveredColourStaysVisibleAndOnlyNearBlackChanges) {
  for (std::uint32_t c = 0; c < (1u << 24); ++c) {
    const Rgba in{static_cast<std::uint8_t>(c >> 16), static_cast<std::uint8_t>(c >> 8),
                  static_cast<std::uint8_t>(c), 255};
    const Rgb out = BakePixel(Mode::Keyed, in);
    const Rgb same{in.r, in.g, in.b};
    const Rgb expected = To565(same) != 0 ? same : kDarkestVisible;
    if (out != expected) FAIL() << "colour " << std::hex << c;
  }
}

TEST(PixelRules, AdditiveAndOpaqueFlattenOntoBlack) {
  const struct {
    Mode mode;
    Rgba in;
    Rgb out;
  } cases[] = {
      {Mode::Additive, {255, 255, 255, 255}, {255, 255, 255}},
      {Mode::Additive, {255, 255, 255, 128}, {128, 128, 128}},
      {Mode::Additive, {255, 255, 255, 0}, {0, 0, 0}},
      {Mode::Additive, {200, 100, 50, 51}, {40, 20, 10}},
      {Mode::Additive, {255, 0, 0, 64}, {64, 0, 0}},
      {Mode::Additive, {255, 255, 255, 3}, {3, 3, 3}},  // faint glow stays faint, neither keyed nor lifted
      {Mode::Additive, {0, 0, 0, 255}, {0, 0, 0}},
      {Mode::Opaque, {10, 20, 30, 255}, {10, 20, 30}},
      {Mode::Opaque, {10, 20, 30, 0}, {0, 0, 0}},
      {Mode::Opaque, {100, 200, 50, 128}, {50, 100, 25}},
      {Mode::Opaque, {0, 0, 0, 255}, {0, 0, 0}},  // a background has no key to avoid
      {Mode::Opaque, {5, 2, 6, 255}, {5, 2, 6}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BakePixel(c.mode, c.in), c.out) << ModeName(c.mode) << " " << int(c.in.r) << "," << int(c.in.g) << ","
                                              << int(c.in.b) << "," << int(c.in.a);
  }
}

}  // namespace
}  // namespace baker
