#include <gtest/gtest.h>

#include "PixelRules.h"

namespace baker {
namespace {

// How bright a 5-6-5 value shows, in the usual luma weights.
double Luma565(std::uint16_t v) {
  const double r = (v >> 11) / 31.0;
  const double g = ((v >> 5) & 63) / 63.0;
  const double b = (v & 31) / 31.0;
  return 0.299 * r + 0.587 * g + 0.114 * b;
}

TEST(PixelRules, ModesParseByTheirManifestNames) {
  EXPECT_EQ(ParseMode("opaque"), Mode::Opaque);
  EXPECT_EQ(ParseMode("keyed"), Mode::Keyed);
  EXPECT_EQ(ParseMode("additive"), Mode::Additive);
  EXPECT_FALSE(ParseMode("Keyed"));
  EXPECT_FALSE(ParseMode("key"));
  EXPECT_FALSE(ParseMode(""));
  for (Mode m : {Mode::Opaque, Mode::Keyed, Mode::Additive}) EXPECT_EQ(ParseMode(ModeName(m)), m);
}

TEST(PixelRules, KeyedDropsPixelsUnderHalfCoverage) {
  EXPECT_EQ(BakePixel(Mode::Keyed, {255, 255, 255, 127}), (Rgb{0, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {255, 255, 255, 128}), (Rgb{255, 255, 255}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {90, 200, 30, 0}), (Rgb{0, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {90, 200, 30, 1}), (Rgb{0, 0, 0}));
  for (int a = 0; a < 256; ++a) {
    const Rgb out = BakePixel(Mode::Keyed, {200, 150, 100, static_cast<std::uint8_t>(a)});
    if (a < 128) {
      EXPECT_EQ(out, (Rgb{0, 0, 0})) << "alpha " << a;
    } else {
      EXPECT_EQ(out, (Rgb{200, 150, 100})) << "alpha " << a;
    }
  }
}

TEST(PixelRules, KeyedKeepsTheColourOfPartlyCoveredEdges) {
  // An edge pixel keeps the colour the picture says; darkening it by its coverage would
  // ring the sprite with a dark halo.
  EXPECT_EQ(BakePixel(Mode::Keyed, {232, 74, 60, 128}), (Rgb{232, 74, 60}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {232, 74, 60, 200}), (Rgb{232, 74, 60}));
}

TEST(PixelRules, KeyedLiftsNearBlackToTheDarkestVisibleValue) {
  EXPECT_EQ(BakePixel(Mode::Keyed, {7, 3, 7, 255}), kDarkestVisible);
  EXPECT_EQ(BakePixel(Mode::Keyed, {0, 0, 0, 128}), kDarkestVisible);
  EXPECT_EQ(BakePixel(Mode::Keyed, {5, 1, 2, 200}), kDarkestVisible);
  // One step above the truncation in any channel is already visible and stays as it is.
  EXPECT_EQ(BakePixel(Mode::Keyed, {8, 0, 0, 255}), (Rgb{8, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {0, 4, 0, 255}), (Rgb{0, 4, 0}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {0, 0, 8, 255}), (Rgb{0, 0, 8}));
  EXPECT_EQ(BakePixel(Mode::Keyed, {7, 3, 8, 255}), (Rgb{7, 3, 8}));
}

TEST(PixelRules, PureBlackInTheSourceDoesNotVanish) {
  const Rgb out = BakePixel(Mode::Keyed, {0, 0, 0, 255});
  EXPECT_NE(To565(out), 0);
  EXPECT_NE(out, (Rgb{0, 0, 0}));
}

TEST(PixelRules, TheLiftedValueIsTheDarkestNonZero565Value) {
  const std::uint16_t lifted = To565(kDarkestVisible);
  ASSERT_NE(lifted, 0);
  EXPECT_EQ(lifted, 1);  // the smallest value as well
  for (std::uint32_t v = 1; v < 0x10000; ++v) {
    ASSERT_LE(Luma565(lifted), Luma565(static_cast<std::uint16_t>(v))) << "value " << v;
  }
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

TEST(PixelRules, AdditivePremultipliesOntoBlack) {
  EXPECT_EQ(BakePixel(Mode::Additive, {255, 255, 255, 255}), (Rgb{255, 255, 255}));
  EXPECT_EQ(BakePixel(Mode::Additive, {255, 255, 255, 128}), (Rgb{128, 128, 128}));
  EXPECT_EQ(BakePixel(Mode::Additive, {255, 255, 255, 0}), (Rgb{0, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Additive, {200, 100, 50, 51}), (Rgb{40, 20, 10}));
  EXPECT_EQ(BakePixel(Mode::Additive, {255, 0, 0, 64}), (Rgb{64, 0, 0}));
  // Faint glow is kept faint, not keyed away nor lifted.
  EXPECT_EQ(BakePixel(Mode::Additive, {255, 255, 255, 3}), (Rgb{3, 3, 3}));
  EXPECT_EQ(BakePixel(Mode::Additive, {0, 0, 0, 255}), (Rgb{0, 0, 0}));
}

TEST(PixelRules, OpaqueFlattensOntoBlack) {
  EXPECT_EQ(BakePixel(Mode::Opaque, {10, 20, 30, 255}), (Rgb{10, 20, 30}));
  EXPECT_EQ(BakePixel(Mode::Opaque, {10, 20, 30, 0}), (Rgb{0, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Opaque, {100, 200, 50, 128}), (Rgb{50, 100, 25}));
  // Dark colours of a background stay dark: there is no key to avoid.
  EXPECT_EQ(BakePixel(Mode::Opaque, {0, 0, 0, 255}), (Rgb{0, 0, 0}));
  EXPECT_EQ(BakePixel(Mode::Opaque, {5, 2, 6, 255}), (Rgb{5, 2, 6}));
}

TEST(PixelRules, BakeImageMapsEveryPixelInPlace) {
  RgbaImage in{3, 2, {{255, 0, 0, 255}, {0, 255, 0, 100}, {0, 0, 0, 255},
                      {1, 1, 1, 130}, {9, 9, 9, 255}, {50, 60, 70, 127}}};
  const RgbImage out = BakeImage(Mode::Keyed, in);
  ASSERT_EQ(out.width, 3);
  ASSERT_EQ(out.height, 2);
  const std::vector<Rgb> expected{{255, 0, 0}, {0, 0, 0}, kDarkestVisible,
                                  kDarkestVisible, {9, 9, 9}, {0, 0, 0}};
  EXPECT_EQ(out.pixels, expected);
}

}  // namespace
}  // namespace baker
