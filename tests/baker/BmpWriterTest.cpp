#include <gtest/gtest.h>

#include "BmpWriter.h"

namespace baker {
namespace {

std::uint32_t U32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return b[at] | (b[at + 1] << 8) | (b[at + 2] << 16) | (static_cast<std::uint32_t>(b[at + 3]) << 24);
}
std::uint32_t U16(const std::vector<std::uint8_t>& b, std::size_t at) { return b[at] | (b[at + 1] << 8); }

RgbImage Numbered(int width, int height) {
  RgbImage image{width, height, {}};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.pixels.push_back({static_cast<std::uint8_t>(10 + x), static_cast<std::uint8_t>(100 + y),
                              static_cast<std::uint8_t>(200 + x + y)});
    }
  }
  return image;
}

TEST(BmpWriter, HeadersDescribeA24BitBottomUpBitmap) {
  const auto bytes = EncodeBmp24(Numbered(5, 3));
  ASSERT_GE(bytes.size(), kBmpHeaderSize);
  EXPECT_EQ(bytes[0], 'B');
  EXPECT_EQ(bytes[1], 'M');
  EXPECT_EQ(U32(bytes, 2), bytes.size());
  EXPECT_EQ(U32(bytes, 10), 54u);  // pixels right after the headers
  EXPECT_EQ(U32(bytes, 14), 40u);
  EXPECT_EQ(U32(bytes, 18), 5u);
  EXPECT_EQ(U32(bytes, 22), 3u);  // positive height: bottom row first
  EXPECT_EQ(U16(bytes, 26), 1u);
  EXPECT_EQ(U16(bytes, 28), 24u);
  EXPECT_EQ(U32(bytes, 30), 0u);
  EXPECT_EQ(U32(bytes, 34), bytes.size() - 54);
  EXPECT_EQ(U32(bytes, 46), 0u);
}

TEST(BmpWriter, RowsArePaddedToFourBytesForEveryWidth) {
  const std::size_t expectedStride[] = {0, 4, 8, 12, 12, 16, 20, 24, 24};
  for (int width = 1; width <= 8; ++width) {
    EXPECT_EQ(BmpRowStride(width), expectedStride[width]) << "width " << width;
    const auto bytes = EncodeBmp24(Numbered(width, 3));
    ASSERT_EQ(bytes.size(), 54 + 3 * expectedStride[width]) << "width " << width;
    for (int row = 0; row < 3; ++row) {
      for (std::size_t pad = 3 * width; pad < expectedStride[width]; ++pad) {
        EXPECT_EQ(bytes[54 + row * expectedStride[width] + pad], 0) << "width " << width << " row " << row;
      }
    }
  }
}

TEST(BmpWriter, PixelsAreBlueGreenRedWithTheTopRowStoredLast) {
  const RgbImage image = Numbered(3, 2);
  const auto bytes = EncodeBmp24(image);
  const std::size_t stride = 12;
  for (int y = 0; y < 2; ++y) {
    const std::size_t row = 54 + stride * (1 - y);
    for (int x = 0; x < 3; ++x) {
      const Rgb& p = image.pixels[y * 3 + x];
      EXPECT_EQ(bytes[row + 3 * x], p.b) << x << "," << y;
      EXPECT_EQ(bytes[row + 3 * x + 1], p.g) << x << "," << y;
      EXPECT_EQ(bytes[row + 3 * x + 2], p.r) << x << "," << y;
    }
  }
}

TEST(BmpWriter, SameImageSameBytes) {
  EXPECT_EQ(EncodeBmp24(Numbered(7, 5)), EncodeBmp24(Numbered(7, 5)));
}

}  // namespace
}  // namespace baker
