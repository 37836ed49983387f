// The baker's bitmap encoding: the header fields, which other programs read even where the
// game's reader does not, and rows padded to four bytes with zeros. Pixels and row order
// come back through the game's own reader in BakedPicturesTest.
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
  for (int i = 0; i < width * height; ++i)
    image.pixels.push_back({static_cast<std::uint8_t>(10 + i), static_cast<std::uint8_t>(100 + i), 200});
  return image;
}

TEST(BmpWriter, HeadersDescribeA24BitBottomUpBitmapWithPaddedRows) {
  const std::size_t expectedStride[] = {0, 4, 8, 12, 12, 16, 20, 24, 24};
  for (int width = 1; width <= 8; ++width) {
    SCOPED_TRACE(width);
    const std::size_t stride = expectedStride[width];
    EXPECT_EQ(BmpRowStride(width), stride);
    const auto bytes = EncodeBmp24(Numbered(width, 3));
    ASSERT_EQ(bytes.size(), 54 + 3 * stride);
    EXPECT_EQ(bytes[0], 'B');
    EXPECT_EQ(bytes[1], 'M');
    EXPECT_EQ(U32(bytes, 2), bytes.size());
    EXPECT_EQ(U32(bytes, 10), 54u);  // pixels right after the headers
    EXPECT_EQ(U32(bytes, 14), 40u);
    EXPECT_EQ(U32(bytes, 18), static_cast<std::uint32_t>(width));
    EXPECT_EQ(U32(bytes, 22), 3u);  // positive height: bottom row first
    EXPECT_EQ(U16(bytes, 26), 1u);
    EXPECT_EQ(U16(bytes, 28), 24u);
    EXPECT_EQ(U32(bytes, 30), 0u);
    EXPECT_EQ(U32(bytes, 34), 3 * stride);
    EXPECT_EQ(U32(bytes, 46), 0u);
    for (int row = 0; row < 3; ++row)
      for (std::size_t pad = 3 * width; pad < stride; ++pad) EXPECT_EQ(bytes[54 + row * stride + pad], 0) << row;
    EXPECT_EQ(EncodeBmp24(Numbered(width, 3)), bytes) << "the same image, the same bytes";
  }
}

}  // namespace
}  // namespace baker
