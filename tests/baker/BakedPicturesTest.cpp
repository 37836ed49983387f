// The baker's bitmaps as the game sees them, read through the game's own bitmap reader:
// what the encoder writes at every width, every manifest entry in this build's dat/ at its
// size; the maze's tiles (floors that are the cell's diamond and tile without gaps or
// seams, walls that stand on it and stack into solid blocks, arrows that point the way
// their names say); and the walking figures (one size, the feet on the bottom centre,
// where the game puts the middle of a floor diamond, and a step that ends close to
// standing, so that the figure does not jump when it stops).
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <unistd.h>

#include "BmpWriter.h"
#include "Manifest.h"
#include "PixelRules.h"
#include "PngFile.h"
#include "platform/BitmapFile.h"

namespace baker {
namespace {

using Picture = platform::Image565;

// A picture of this build's dat/; an empty one, with a test failure, when the game cannot
// read it.
Picture Load(const std::string& name) {
  const auto path = std::filesystem::path(QUARNWICK_BUILD_DIR) / "dat" / name;
  auto image = platform::LoadBitmapFile(path.string());
  if (!image) ADD_FAILURE() << "the game cannot read " << path;
  return image ? *image : Picture{};
}

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
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 2), "BM");
    EXPECT_EQ(U32(bytes, 2), bytes.size());
    EXPECT_EQ(U32(bytes, 10), 54u);  // pixels right after the headers
    EXPECT_EQ(U32(bytes, 14), 40u);
    EXPECT_EQ(U32(bytes, 18), static_cast<std::uint32_t>(width));
    EXPECT_EQ(U32(bytes, 22), 3u);  // positive height: bottom row first
    // One plane of 24 bits, no compression, the pixels' size, no palette.
    using Fields = std::vector<std::size_t>;
    EXPECT_EQ((Fields{U16(bytes, 26), U16(bytes, 28), U32(bytes, 30), U32(bytes, 34), U32(bytes, 46)}),
              (Fields{1, 24, 0, 3 * stride, 0}));
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
    EXPECT_EQ(std::tuple(image->width, image->height), std::tuple(entry.width, entry.height));

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

// The maze's cell geometry: the floor is the 109 x 28 diamond; neighbours are 54 across and
// 14 down (or up); a tile's bottom edge lies on its cell's point.
constexpr int kFloorWidth = 109;
constexpr int kFloorHeight = 28;
constexpr int kStepX = 54;
constexpr int kStepY = 14;
// One height for every wall: the block's top face is raised 32 px above the diamond, with
// room above it for what rises from the top.
constexpr int kWallHeight = 80;
constexpr int kWallRise = 32;

const std::array<const char*, 6> kAreas = {"genwood", "beachcave", "ruins", "icecave", "castle", "forest2"};

bool Opaque(const Picture& p, int x, int y) { return p.pixels[y * p.width + x] != 0; }

// How many pixels of the inner cells of a 5 x 5 field of the tile stay uncovered where
// `inside` says the cell's own shape is (a key pixel there would be a black hole between
// neighbours). Pictures are drawn keyed with their bottom edge on their cell's point, in
// the maze's order.
template <typename Inside>
int FieldHoles(const Picture& tile, Inside inside) {
  const int cells = 5, width = 2 * kStepX * cells + tile.width, height = 2 * kStepY * cells + tile.height;
  std::vector<std::uint16_t> field(static_cast<std::size_t>(width) * height, 0);
  // Where cell (cx, cy)'s tile has its pixel (x, y).
  auto at = [&](int cx, int cy, int x, int y) -> std::uint16_t& {
    return field[((cx + cy) * kStepY + y) * width + kStepX * (cells + cx - cy) + x];
  };
  for (int cy = 0; cy < cells; ++cy)
    for (int cx = 0; cx < cells; ++cx)
      for (int y = 0; y < tile.height; ++y)
        for (int x = 0; x < tile.width; ++x)
          if (tile.pixels[y * tile.width + x] != 0) at(cx, cy, x, y) = tile.pixels[y * tile.width + x];
  int holes = 0;
  for (int cy = 1; cy < cells - 1; ++cy)
    for (int cx = 1; cx < cells - 1; ++cx)
      for (int y = 0; y < tile.height; ++y)
        for (int x = 0; x < tile.width; ++x) holes += inside(x, y) && at(cx, cy, x, y) == 0;
  return holes;
}

// Whether the centre of picture pixel (x, y) lies at least `margin` px inside the diamond
// whose bottom corner is at (54.5, bottom): |dx| / 54 + |dy| / 14 <= 1, measured along the
// picture's rows and columns.
bool InsideDiamond(int x, int y, double bottom, double margin) {
  const double dx = std::abs(x + 0.5 - 54.5);
  const double dy = std::abs(y + 0.5 - (bottom - kStepY));
  return dx + margin <= kStepX * (1.0 - (dy + margin) / kStepY);
}

// Whether the centre of picture pixel (x, y) lies at least `margin` px inside a wall's
// block: the diamond at the foot of the picture swept up by the wall's rise, which is the
// top face, the two front faces and the base.
bool InsideBlock(int x, int y, double margin) {
  const double dx = std::abs(x + 0.5 - 54.5);
  const double half = kStepY * (1.0 - (dx + margin) / kStepX) - margin;
  if (half < 0) return false;
  const double cy = y + 0.5;
  return cy >= kWallHeight - kWallRise - kStepY - half && cy <= kWallHeight - kStepY + half;
}

double Brightness(std::uint16_t p) {
  return 0.299 * ((p >> 11) * 255.0 / 31) + 0.587 * (((p >> 5) & 63) * 255.0 / 63) + 0.114 * ((p & 31) * 255.0 / 31);
}

TEST(MazeFloors, AreTheCellsDiamondAndTileWithoutGapsSeamsOrRims) {
  for (const char* area : kAreas) {
    SCOPED_TRACE(area);
    const Picture floor = Load(std::string(area) + "-floor.bmp");
    ASSERT_EQ(floor.width, kFloorWidth);
    ASSERT_EQ(floor.height, kFloorHeight);
    // Everything well inside the diamond is drawn, nothing well outside it (the picture's
    // corners, say).
    int holes = 0, spills = 0;
    for (int y = 0; y < kFloorHeight; ++y) {
      for (int x = 0; x < kFloorWidth; ++x) {
        if (InsideDiamond(x, y, kFloorHeight, 0.75) && !Opaque(floor, x, y)) ++holes;
        if (!InsideDiamond(x, y, kFloorHeight, -1.5) && Opaque(floor, x, y)) ++spills;
      }
    }
    EXPECT_EQ(holes, 0) << "key pixels inside the diamond";
    EXPECT_EQ(spills, 0) << "pixels drawn outside the diamond";
    EXPECT_EQ(FieldHoles(floor, [](int x, int y) { return InsideDiamond(x, y, kFloorHeight, -1.0); }), 0)
        << "gaps between neighbours";

    // Where a tile and its neighbour both draw a pixel (the one-pixel overlap along their
    // shared edge), they agree: the ground is one pattern that runs on across the edge, so
    // no seam shows whichever is drawn last. Shading that changes across the tile, or a
    // pattern that does not repeat with the cell, breaks this.
    int shared = 0, differing = 0;
    for (const auto& [sx, sy] : {std::pair{kStepX, kStepY}, {kStepX, -kStepY}, {2 * kStepX, 0}}) {
      for (int y = 0; y < kFloorHeight; ++y) {
        for (int x = 0; x < kFloorWidth; ++x) {
          const int nx = x - sx, ny = y - sy;
          if (nx < 0 || ny < 0 || nx >= kFloorWidth || ny >= kFloorHeight) continue;
          if (!Opaque(floor, x, y) || !Opaque(floor, nx, ny)) continue;
          ++shared;
          const std::uint16_t a = floor.pixels[y * kFloorWidth + x];
          const std::uint16_t b = floor.pixels[ny * kFloorWidth + nx];
          // Each tile covers only its part of a shared pixel, so anti-aliasing may shade
          // it a little differently: allow a few steps of each channel.
          const int dr = std::abs((a >> 11) - (b >> 11));
          const int dg = std::abs(((a >> 5) & 63) - ((b >> 5) & 63));
          const int db = std::abs((a & 31) - (b & 31));
          if (dr > 3 || dg > 6 || db > 3) ++differing;
        }
      }
    }
    EXPECT_GT(shared, 100) << "neighbouring floors hardly overlap: gaps are likely";
    // Where a detail's edge meets the tile's edge the two renderings may differ by more; a
    // seam makes most of them differ.
    EXPECT_LE(differing * 5, shared) << differing << " of " << shared << " shared pixels differ";

    // No outline or dark rim along the diamond's edges: it would draw a grid over the
    // field. The pixels along the edge are about as bright as the rest of the tile.
    double rim = 0, inner = 0;
    int rimCount = 0, innerCount = 0;
    for (int y = 0; y < kFloorHeight; ++y) {
      for (int x = 0; x < kFloorWidth; ++x) {
        if (!Opaque(floor, x, y)) continue;
        const double b = Brightness(floor.pixels[y * kFloorWidth + x]);
        if (!InsideDiamond(x, y, kFloorHeight, 1.5)) {
          rim += b;
          ++rimCount;
        } else if (InsideDiamond(x, y, kFloorHeight, 3.0)) {
          inner += b;
          ++innerCount;
        }
      }
    }
    ASSERT_GT(rimCount, 0);
    ASSERT_GT(innerCount, 0);
    const double ratio = (rim / rimCount) / (inner / innerCount);
    EXPECT_GT(ratio, 0.8);
    EXPECT_LT(ratio, 1.25);
  }
}

TEST(MazeWalls, StandOnTheCellsDiamondAndStackIntoSolidBlocks) {
  for (const char* area : kAreas) {
    SCOPED_TRACE(area);
    const Picture wall = Load(std::string(area) + "-wall.bmp");
    ASSERT_EQ(wall.width, kFloorWidth);
    ASSERT_EQ(wall.height, kWallHeight);
    // The bottom row is the diamond's lower corner: opaque around the centre column only (the
    // diamond's last row spans about 4 px either side, the overlap with the floor in front a
    // little more).
    const int bottom = kWallHeight - 1;
    int shown = 0;
    for (int x = 0; x < kFloorWidth; ++x) {
      if (!Opaque(wall, x, bottom)) continue;
      ++shown;
      EXPECT_LE(std::abs(x - kFloorWidth / 2), 6) << "bottom-row pixel at " << x;
    }
    EXPECT_GT(shown, 0) << "nothing on the diamond's lower corner";
    // The block is solid.
    int holes = 0;
    for (int y = 0; y < kWallHeight; ++y) {
      for (int x = 0; x < kFloorWidth; ++x) {
        if (InsideBlock(x, y, 0.75) && !Opaque(wall, x, y)) ++holes;
      }
    }
    // So are its outermost columns, the block's side corners from the top face down to the
    // base: in a row of walls the next one draws its corner column over this one's front
    // corner, and a gap there would show as a line down the row's face.
    for (int y = kWallHeight - kWallRise - kStepY + 1; y < kWallHeight - kStepY - 1; ++y) {
      if (!Opaque(wall, 0, y)) ++holes;
      if (!Opaque(wall, kFloorWidth - 1, y)) ++holes;
    }
    EXPECT_EQ(holes, 0) << "key pixels inside the block";
    // Every pixel of an inner cell's block is covered, by its own wall or one in front.
    EXPECT_EQ(FieldHoles(wall, [](int x, int y) { return InsideBlock(x, y, -1.0); }), 0) << "holes in a block of walls";
  }
}

// An arrow lies flat on the diamond along one of its edges, tail narrow and head pointed:
// seen in the floor's own frame (t along the arrow's way, s across it, in cells), it is long
// in t, and its far end in t (the tip) is narrower in s than its near end (the tail's cut).
struct Spread {
  double length = 0, width = 0, tip = 0, tail = 0;
};

Spread Measure(const Picture& p, int wayX, int wayY) {
  // The way (wayX * 54, wayY * 14) and the other edge of the diamond, across it.
  const double dx = wayX * kStepX, dy = wayY * kStepY;
  const double ex = -wayY * kStepX, ey = wayX * kStepY;
  const double det = dx * ey - dy * ex;
  std::vector<std::array<double, 2>> ts;  // t, s of each shown pixel
  for (int y = 0; y < p.height; ++y) {
    for (int x = 0; x < p.width; ++x) {
      if (!Opaque(p, x, y)) continue;
      const double vx = x + 0.5 - p.width / 2.0, vy = y + 0.5 - p.height / 2.0;
      ts.push_back({(vx * ey - vy * ex) / det, (dx * vy - dy * vx) / det});
    }
  }
  if (ts.empty()) return {};
  const auto [first, last] = std::minmax_element(ts.begin(), ts.end());  // by t first
  const double tMin = (*first)[0], tMax = (*last)[0];
  // How wide in s the pixels with t in [from, to] are.
  auto width = [&](double from, double to) {
    double low = 1e9, high = -1e9;
    for (const auto& [t, s] : ts)
      if (t >= from && t <= to) low = std::min(low, s), high = std::max(high, s);
    return high - low;
  };
  // The tip and the tail: within the last tenth of a cell at either end.
  return {tMax - tMin, width(tMin, tMax), width(tMax - 0.1, tMax), width(tMin, tMin + 0.1)};
}

TEST(MazeArrows, PointTheWayTheirNamesSay) {
  struct Case {
    const char* name;
    int wayX, wayY;  // the screen way: right +1, down +1
  };
  for (const Case c : {Case{"arrow-RU.bmp", 1, -1}, Case{"arrow-LU.bmp", -1, -1}, Case{"arrow-RD.bmp", 1, 1},
                       Case{"arrow-LD.bmp", -1, 1}}) {
    SCOPED_TRACE(c.name);
    const Picture arrow = Load(c.name);
    ASSERT_GT(arrow.width, 0);
    // Flat on the floor: far wider than tall, like the diamond.
    EXPECT_GT(arrow.width, 2 * arrow.height);
    const Spread spread = Measure(arrow, c.wayX, c.wayY);
    EXPECT_GT(spread.length, 1.3 * spread.width) << "not lying along its way";
    EXPECT_LT(spread.tip, 0.75 * spread.tail) << "its point is not on the side it should point to";
  }
}

constexpr int kFramesPerSet = 7;

struct FigureSet {
  const char* what;
  std::array<const char*, kFramesPerSet> files;  // frame 0 standing first
};

const std::array<FigureSet, 4> kSets{{
    {"boy from behind", {"walk000.bmp", "walk001.bmp", "walk002.bmp", "walk003.bmp", "walk004.bmp",
                         "walk005.bmp", "walk006.bmp"}},
    {"boy from the front", {"boy000.bmp", "boy001.bmp", "boy002.bmp", "boy003.bmp", "boy004.bmp", "boy005.bmp",
                            "boy006.bmp"}},
    {"girl from behind", {"gwalk001.bmp", "gwalk002.bmp", "gwalk003.bmp", "gwalk004.bmp", "gwalk005.bmp",
                          "gwalk006.bmp", "gwalk007.bmp"}},
    {"girl from the front", {"girlf1.bmp", "girlf2.bmp", "girlf3.bmp", "girlf4.bmp", "girlf5.bmp", "girlf6.bmp",
                             "girlf7.bmp"}},
}};

// The key colour: what the game leaves out when it draws a keyed picture.
constexpr std::uint16_t kKey = 0;

bool Shown(const Picture& image, int x, int y) {
  return image.pixels[static_cast<std::size_t>(y) * image.width + x] != kKey;
}

// Pixels shown in one frame and left out in the other. The frames are compared by where the
// figure is, not by its colours: the shading inside moves with every half-pixel change of a
// limb, which the eye does not take for a jump.
int SilhouetteDifference(const Picture& a, const Picture& b) {
  int count = 0;
  for (std::size_t i = 0; i < a.pixels.size() && i < b.pixels.size(); ++i) {
    count += (a.pixels[i] != kKey) != (b.pixels[i] != kKey);
  }
  return count;
}

int ShownCount(const Picture& image) {
  int count = 0;
  for (const auto p : image.pixels) count += p != kKey;
  return count;
}

TEST(WalkingFigures, OneSizeFeetOnTheBottomCentreAndAStepThatEndsCloseToStanding) {
  const auto first = Load(kSets[0].files[0]);
  ASSERT_GT(first.width, 0);
  EXPECT_GE(first.width, 28);
  EXPECT_LE(first.width, 40);
  EXPECT_GE(first.height, 56);
  EXPECT_LE(first.height, 72);
  constexpr int kFootRows = 4;
  for (const auto& set : kSets) {
    std::vector<Picture> frames;
    for (const char* file : set.files) {
      SCOPED_TRACE(std::string(set.what) + " " + file);
      const auto& image = frames.emplace_back(Load(file));
      ASSERT_EQ(image.width, first.width);
      ASSERT_EQ(image.height, first.height);
      const int centre = image.width / 2;
      // Something of a foot on one of the two bottom rows, and the feet of the bottom rows
      // round the centre column: at it, and on average near it.
      bool onBottom = false;
      bool atCentre = false;
      int count = 0;
      long sumX = 0;
      for (int y = image.height - kFootRows; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
          if (!Shown(image, x, y)) continue;
          onBottom = onBottom || y >= image.height - 2;
          atCentre = atCentre || std::abs(x - centre) <= 4;
          ++count;
          sumX += x;
        }
      }
      EXPECT_TRUE(onBottom) << "the feet do not reach the bottom rows";
      EXPECT_TRUE(atCentre) << "no foot near the centre column";
      ASSERT_GT(count, 0);
      EXPECT_NEAR(static_cast<double>(sumX) / count, centre, 6.0) << "the feet stand off centre";
      // And nothing but the feet down there: the figure is not cut by the frame's sides.
      for (int y = 0; y < image.height; ++y) {
        EXPECT_FALSE(Shown(image, 0, y) || Shown(image, image.width - 1, y)) << "touches a side at row " << y;
      }
    }
    SCOPED_TRACE(set.what);
    const auto& standing = frames.front();
    const int shown = ShownCount(standing);
    const int toLast = SilhouetteDifference(standing, frames.back());
    // Every frame of the walk is further from standing than the last one, which leads back
    // into it; and the stride's widest frame is far from it.
    int widest = 0;
    for (int i = 1; i + 1 < kFramesPerSet; ++i) {
      const int toFrame = SilhouetteDifference(standing, frames[i]);
      EXPECT_LT(toLast, toFrame) << "frame " << i << " is closer to standing than the last frame";
      widest = std::max(widest, toFrame);
    }
    EXPECT_LE(toLast, shown / 10) << "the last frame is far from standing";
    EXPECT_GE(widest, shown / 5) << "the legs and arms hardly swing";
  }
}

}  // namespace
}  // namespace baker
