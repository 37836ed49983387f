// The bitmap reader: every common depth and layout gives the same picture, and broken
// files are refused instead of read past their end.
#include <gtest/gtest.h>

#include "platform/BitmapFile.h"
#include "platform/Surface.h"
#include "support/BitmapBytes.h"

using platform::DecodeBitmap;
using platform::Rgb565;

namespace {

// A 5 x 3 test card of colours that every depth can hold exactly.
const std::vector<std::uint32_t> kCard = {
    0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0x000000,  //
    0xFFFF00, 0x000000, 0xFF00FF, 0x00FFFF, 0xFF0000,  //
    0x000000, 0xFFFFFF, 0x00FF00, 0x0000FF, 0xFFFF00,
};

std::uint16_t Expected(std::uint32_t rgb) { return Rgb565(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

std::vector<std::uint8_t> Card(int bits, bool topDown, bool fields = false) {
  BitmapLayout layout{5, 3, bits, topDown, {}, {}, {}};
  if (bits <= 8) {
    layout.palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0xFFFF00, 0xFF00FF, 0x00FFFF};
    for (std::uint32_t c : kCard) {
      std::uint32_t index = 0;
      while (layout.palette[index] != c) ++index;
      layout.values.push_back(index);
    }
    if (bits == 1) {  // two colours only: white and black
      layout.palette = {0x000000, 0xFFFFFF};
      layout.values.clear();
      for (std::uint32_t c : kCard) layout.values.push_back(c == 0xFFFFFF ? 1 : 0);
    }
  } else {
    layout.values = kCard;
  }
  if (fields && bits == 16) layout.masks = {0xF800, 0x07E0, 0x001F};
  if (fields && bits == 32) layout.masks = {0x00FF0000, 0x0000FF00, 0x000000FF};
  return MakeBitmap(layout);
}

TEST(BitmapFileTest, EveryDepthAndRowOrderGivesTheSamePicture) {
  struct Case {
    int bits;
    bool topDown;
    bool fields;
  };
  for (const Case c : {Case{1, false, false}, Case{4, false, false}, Case{8, false, false}, Case{8, true, false},
                       Case{16, false, false}, Case{16, false, true}, Case{24, false, false}, Case{24, true, false},
                       Case{32, false, false}, Case{32, true, true}}) {
    SCOPED_TRACE(testing::Message() << c.bits << " bits, top-down " << c.topDown << ", fields " << c.fields);
    const auto bytes = Card(c.bits, c.topDown, c.fields);
    const auto image = DecodeBitmap(bytes);
    ASSERT_TRUE(image.has_value());
    ASSERT_EQ(image->width, 5);
    ASSERT_EQ(image->height, 3);
    for (int i = 0; i < 15; ++i) {
      const std::uint32_t want = c.bits == 1 ? (kCard[i] == 0xFFFFFF ? 0xFFFFFF : 0) : kCard[i];
      EXPECT_EQ(image->pixels[i], Expected(want)) << "pixel " << i;
    }
  }
}

TEST(BitmapFileTest, ChannelsAreTruncatedTo565) {
  BitmapLayout layout{2, 1, 24, false, {}, {0x0F0B07, 0x080408}, {}};
  const auto image = DecodeBitmap(MakeBitmap(layout));
  ASSERT_TRUE(image.has_value());
  EXPECT_EQ(image->pixels[0], (1 << 11) | (2 << 5) | 0) << "15, 11, 7 keep their top 5, 6, 5 bits";
  EXPECT_EQ(image->pixels[1], (1 << 11) | (1 << 5) | 1);
}

TEST(BitmapFileTest, BrokenFilesAreRefused) {
  const auto good = Card(24, false);
  ASSERT_TRUE(DecodeBitmap(good).has_value());

  // Every truncation of a good file.
  for (std::size_t n = 0; n < good.size(); ++n) {
    EXPECT_FALSE(DecodeBitmap(std::span(good.data(), n)).has_value()) << "cut at " << n;
  }
  auto patched = [&](std::size_t at, std::uint32_t value, int bytes) {
    auto copy = good;
    for (int i = 0; i < bytes; ++i) copy[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
    return copy;
  };
  EXPECT_FALSE(DecodeBitmap(patched(0, 'X', 1)).has_value()) << "not a bitmap";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0, 4)).has_value()) << "zero width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0, 4)).has_value()) << "zero height";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0x7FFFFFFF, 4)).has_value()) << "absurd width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0x80000000, 4)).has_value()) << "absurd top-down height";
  EXPECT_FALSE(DecodeBitmap(patched(28, 7, 2)).has_value()) << "unknown depth";
  EXPECT_FALSE(DecodeBitmap(patched(30, 1, 4)).has_value()) << "run-length compressed";
  EXPECT_FALSE(DecodeBitmap(patched(10, 0xFFFFFF00, 4)).has_value()) << "pixels beyond the end";

  // A palette index beyond the palette shows black.
  BitmapLayout layout{2, 1, 8, false, {0xFF0000}, {0, 200}, {}};
  const auto beyond = DecodeBitmap(MakeBitmap(layout));
  ASSERT_TRUE(beyond.has_value());
  EXPECT_EQ(beyond->pixels[0], Expected(0xFF0000));
  EXPECT_EQ(beyond->pixels[1], 0);
  EXPECT_FALSE(platform::LoadBitmapFile("/nonexistent/quarnwick.bmp").has_value());
  EXPECT_FALSE(platform::LoadBitmapFile(QUARNWICK_TEST_DATA).has_value()) << "a folder is no picture";
}

}  // namespace
