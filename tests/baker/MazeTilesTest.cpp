// The maze's baked tiles and markers, read through the game's own bitmap reader: the floors
// are the cell's diamond and tile without gaps or seams, the walls stand on that diamond
// and stack into solid blocks, the arrows point the way their names say.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "BakedPicture.h"
#include "platform/BitmapFile.h"

namespace {

using Picture = platform::Image565;

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

Picture Load(const std::string& name) { return LoadBakedPicture(name); }

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
    for (const auto& [x, y] : {std::pair{0, 0}, {kFloorWidth - 1, 0}, {0, kFloorHeight - 1}, {kFloorWidth - 1, kFloorHeight - 1}})
      EXPECT_FALSE(Opaque(floor, x, y)) << "corner " << x << "," << y;
    EXPECT_TRUE(Opaque(floor, kFloorWidth / 2, kFloorHeight / 2));
    // Everything well inside the diamond is drawn, nothing well outside it.
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

}  // namespace
