// The bitmap reader: every common depth and layout gives the same picture, and broken
// files are refused instead of read past their end.
#include <gtest/gtest.h>

#include "platform/BitmapFile.h"
#include "platform/Surface.h"
#include "support/TestData.h"

using platform::DecodeBitmap;
using platform::Rgb565;

namespace {

// The test card of tests/data, in colours that every depth can hold exactly.
const std::vector<std::uint32_t> kCard = {
    0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0x000000,  //
    0xFFFF00, 0x000000, 0xFF00FF, 0x00FFFF, 0xFF0000,  //
    0x000000, 0xFFFFFF, 0x00FF00, 0x0000FF, 0xFFFF00,
};

// The bytes with a little-endian field of `size` bytes at `at` set to the value.
std::vector<std::uint8_t> Patched(std::vector<std::uint8_t> bytes, std::size_t at, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
  return bytes;
}

std::uint16_t Expected(std::uint32_t rgb) { return Rgb565(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

TEST(BitmapFileTest, EveryDepthAndRowOrderGivesTheSamePicture) {
  for (const char* name : {"card-1.bmp", "card-4.bmp", "card-8.bmp", "card-8-top-down.bmp", "card-16.bmp",
                           "card-16-fields.bmp", "card-24.bmp", "card-24-top-down.bmp", "card-32.bmp",
                           "card-32-top-down-fields.bmp"}) {
    SCOPED_TRACE(name);
    const auto image = platform::LoadBitmapFile(TestData(name));
    ASSERT_TRUE(image.has_value());
    ASSERT_EQ(image->width, 5);
    ASSERT_EQ(image->height, 3);
    const bool twoColours = std::string(name) == "card-1.bmp";
    for (int i = 0; i < 15; ++i) {
      const std::uint32_t want = twoColours ? (kCard[i] == 0xFFFFFF ? 0xFFFFFF : 0) : kCard[i];
      EXPECT_EQ(image->pixels[i], Expected(want)) << "pixel " << i;
    }
  }
}

TEST(BitmapFileTest, ChannelsAreTruncatedTo565) {
  const auto image = platform::LoadBitmapFile(TestData("dark-channels.bmp"));
  ASSERT_TRUE(image.has_value());
  EXPECT_EQ(image->pixels[0], (1 << 11) | (2 << 5) | 0) << "15, 11, 7 keep their top 5, 6, 5 bits";
  EXPECT_EQ(image->pixels[1], (1 << 11) | (1 << 5) | 1);
}

TEST(BitmapFileTest, RunLengthPictures) {
  const std::vector<std::uint32_t> palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
  struct Case {
    const char* name;
    int width;
    std::vector<std::uint32_t> indices;  // top row first
  };
  const Case cases[] = {
      {"runs-8.bmp", 4, {2, 3, 4, 1, 0, 0, 0, 2, 1, 1, 1, 0}},
      {"runs-4.bmp", 6, {2, 3, 4, 1, 2, 3, 0, 0, 0, 2, 0, 0, 1, 2, 1, 0, 0, 0}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto bytes = ReadTestData(c.name);
    const auto image = DecodeBitmap(bytes);
    ASSERT_TRUE(image.has_value());
    ASSERT_EQ(image->width, c.width);
    ASSERT_EQ(image->height, 3);
    for (std::size_t i = 0; i < c.indices.size(); ++i) EXPECT_EQ(image->pixels[i], Expected(palette[c.indices[i]])) << i;
    // Cut anywhere, the file still decodes or is refused, and nothing is read past its end.
    for (std::size_t n = 0; n < bytes.size(); ++n) DecodeBitmap(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + n));
    // Run lengths are written bottom-up only (here height -3); and 5000 x 1000 pixels from
    // a few bytes of runs are too many.
    EXPECT_FALSE(DecodeBitmap(Patched(bytes, 22, static_cast<std::uint32_t>(-3), 4)).has_value());
    EXPECT_FALSE(DecodeBitmap(Patched(Patched(bytes, 18, 5000, 4), 22, 1000, 4)).has_value());
  }
}

TEST(BitmapFileTest, BrokenFilesAreRefused) {
  const auto good = ReadTestData("card-24.bmp");
  ASSERT_TRUE(DecodeBitmap(good).has_value());

  // Every truncation of a good file.
  for (std::size_t n = 0; n < good.size(); ++n)
    EXPECT_FALSE(DecodeBitmap(std::span(good.data(), n)).has_value()) << "cut at " << n;
  auto patched = [&](std::size_t at, std::uint32_t value, int size) { return Patched(good, at, value, size); };
  EXPECT_FALSE(DecodeBitmap(patched(0, 'X', 1)).has_value()) << "not a bitmap";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0, 4)).has_value()) << "zero width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0, 4)).has_value()) << "zero height";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0x7FFFFFFF, 4)).has_value()) << "absurd width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0x80000000, 4)).has_value()) << "absurd top-down height";
  EXPECT_FALSE(DecodeBitmap(patched(28, 7, 2)).has_value()) << "unknown depth";
  EXPECT_FALSE(DecodeBitmap(patched(30, 1, 4)).has_value()) << "run lengths on 24 bits";
  EXPECT_FALSE(DecodeBitmap(patched(10, 0xFFFFFF00, 4)).has_value()) << "pixels beyond the end";

  // A palette index beyond the palette shows black.
  const auto beyond = platform::LoadBitmapFile(TestData("short-palette.bmp"));
  ASSERT_TRUE(beyond.has_value());
  EXPECT_EQ(beyond->pixels[0], Expected(0xFF0000));
  EXPECT_EQ(beyond->pixels[1], 0);
  EXPECT_FALSE(platform::LoadBitmapFile("/nonexistent/quarnwick.bmp").has_value());
  EXPECT_FALSE(platform::LoadBitmapFile(QUARNWICK_TEST_DATA).has_value()) << "a folder is no picture";
}

}  // namespace
