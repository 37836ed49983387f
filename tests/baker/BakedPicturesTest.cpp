// The baker's bitmaps as the game sees them: what the encoder writes at every width, and
// every manifest entry in this build's dat/ at its size, loaded by the game's own reader.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

#include "BmpWriter.h"
#include "Manifest.h"
#include "PixelRules.h"
#include "PngFile.h"
#include "platform/BitmapFile.h"

namespace baker {
namespace {

namespace fs = std::filesystem;

std::vector<std::uint8_t> ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::uint32_t U32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return b[at] | (b[at + 1] << 8) | (b[at + 2] << 16) | (static_cast<std::uint32_t>(b[at + 3]) << 24);
}

std::uint32_t U16(const std::vector<std::uint8_t>& b, std::size_t at) { return b[at] | (b[at + 1] << 8); }

// The header fields too, which other programs read even where the game's reader does not,
// and rows padded to four bytes with zeros.
TEST(BakedBitmaps, A24BitBottomUpBitmapWithPaddedRowsThatTheGameReadsAtEveryWidth) {
  const std::size_t expectedStride[] = {0, 4, 8, 12, 12, 16, 20, 24, 24, 28};
  for (int width = 1; width <= 9; ++width) {
    SCOPED_TRACE(width);
    RgbImage image{width, 3, {}};
    for (int y = 0; y < 3; ++y) {
      for (int x = 0; x < width; ++x) {
        image.pixels.push_back({static_cast<std::uint8_t>(8 * x + 16), static_cast<std::uint8_t>(4 * y + 40),
                                static_cast<std::uint8_t>(8 * (x + y) + 24)});
      }
    }
    const std::size_t stride = expectedStride[width];
    EXPECT_EQ(BmpRowStride(width), stride);
    const auto bytes = EncodeBmp24(image);
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
    EXPECT_EQ(EncodeBmp24(image), bytes) << "the same image, the same bytes";
    const auto decoded = platform::DecodeBitmap(bytes);
    ASSERT_TRUE(decoded);
    ASSERT_EQ(decoded->width, width);
    ASSERT_EQ(decoded->height, 3);
    for (std::size_t i = 0; i < image.pixels.size(); ++i) EXPECT_EQ(decoded->pixels[i], To565(image.pixels[i])) << i;
  }
}

class BakerProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = fs::temp_directory_path() / ("baker-test-" + std::to_string(::getpid()));
    fs::create_directories(folder);
  }
  void TearDown() override { fs::remove_all(folder); }

  int Run(const std::string& arguments) {
    const std::string command = std::string(BAKER_PATH) + " " + arguments + " 2>/dev/null";
    return std::system(command.c_str());
  }

  fs::path folder;
};

TEST_F(BakerProgram, BakesAKeyedSpriteTheGameCanDrawWithItsKey) {
  // A 3 x 2 rendering: a faint edge, an outline pixel at half cover, pure black ink,
  // a bare transparent pixel, a coloured body pixel and one under half cover.
  RgbaImage png{3, 2, {{255, 255, 255, 127}, {23, 58, 115, 128}, {0, 0, 0, 255},
                       {0, 0, 0, 0}, {61, 139, 232, 255}, {61, 139, 232, 64}}};
  std::string error;
  ASSERT_TRUE(WritePng((folder / "in.png").string(), png, error)) << error;
  const fs::path out = folder / "sub" / "SPRITE.bmp";
  ASSERT_EQ(Run("keyed 3 2 " + (folder / "in.png").string() + " " + out.string()), 0);
  const auto image = platform::LoadBitmapFile(out.string());
  ASSERT_TRUE(image);
  ASSERT_EQ(image->width, 3);
  ASSERT_EQ(image->height, 2);
  const std::vector<std::uint16_t> expected{0, To565({23, 58, 115}), 1, 0, To565({61, 139, 232}), 0};
  EXPECT_EQ(image->pixels, expected);
  EXPECT_FALSE(fs::exists(out.string() + ".part"));
}

TEST_F(BakerProgram, RefusesARenderingOfTheWrongSizeAndWritesNothing) {
  RgbaImage png{2, 2, std::vector<Rgba>(4, Rgba{255, 0, 0, 255})};
  std::string error;
  ASSERT_TRUE(WritePng((folder / "in.png").string(), png, error)) << error;
  const fs::path out = folder / "OUT.bmp";
  EXPECT_NE(Run("opaque 3 2 " + (folder / "in.png").string() + " " + out.string()), 0);
  EXPECT_NE(Run("glowing 2 2 " + (folder / "in.png").string() + " " + out.string()), 0);
  EXPECT_NE(Run("opaque 2 2 " + (folder / "missing.png").string() + " " + out.string()), 0);
  EXPECT_FALSE(fs::exists(out));
  EXPECT_EQ(Run("opaque 2 2 " + (folder / "in.png").string() + " " + out.string()), 0);
  EXPECT_TRUE(fs::exists(out));
}

TEST(BakedPictures, EveryManifestEntryIsInDatAtItsSize) {
  const Manifest manifest = ReadManifests(QUARNWICK_PICTURES_DIR);
  for (const auto& e : manifest.errors) ADD_FAILURE() << e;
  ASSERT_FALSE(manifest.entries.empty()) << "no picture in " << QUARNWICK_PICTURES_DIR;
  const fs::path dat = fs::path(QUARNWICK_BUILD_DIR) / "dat";
  for (const auto& entry : manifest.entries) {
    SCOPED_TRACE(entry.where + " " + entry.output);
    const fs::path path = dat / entry.output;
    ASSERT_TRUE(fs::is_regular_file(path)) << path << " was not baked";

    const auto image = platform::LoadBitmapFile(path.string());
    ASSERT_TRUE(image) << "the game cannot read " << path;
    EXPECT_EQ(image->width, entry.width);
    EXPECT_EQ(image->height, entry.height);

    const auto bytes = ReadAll(path);
    ASSERT_GE(bytes.size(), kBmpHeaderSize);
    EXPECT_EQ(bytes[28], 24) << "not 24 bits per pixel";
    EXPECT_EQ(U32(bytes, 22), static_cast<std::uint32_t>(entry.height)) << "not bottom-up";
    ASSERT_EQ(bytes.size(), kBmpHeaderSize + BmpRowStride(entry.width) * entry.height);

    if (entry.mode == Mode::Keyed) {
      // Every pixel is either the exact key or visible in 5-6-5, and something shows.
      int shown = 0;
      for (int y = 0; y < entry.height; ++y) {
        const std::size_t row = kBmpHeaderSize + BmpRowStride(entry.width) * y;
        for (int x = 0; x < entry.width; ++x) {
          const Rgb p{bytes[row + 3 * x + 2], bytes[row + 3 * x + 1], bytes[row + 3 * x]};
          if (p == Rgb{0, 0, 0}) continue;
          ASSERT_NE(To565(p), 0) << "pixel " << x << "," << entry.height - 1 - y << " would vanish";
          ++shown;
        }
      }
      EXPECT_GT(shown, 0) << "nothing visible";
    }
  }
}

}  // namespace
}  // namespace baker
