// maze-preview DAT OUTDIR [AREA...]
// Lays the baked maze pictures of each wild area out in the maze's geometry: a small maze
// with ridges both ways, a pillar, corridors, a clearing, an event cell with its marker and
// ring, the exit with its ladder, the arrow on a floor cell and a figure-sized box. Writes
//   OUTDIR/<area>.png         the whole maze as the game draws it,
//   OUTDIR/<area>-x2.png      the same at twice the size, for judging edges,
//   OUTDIR/<area>-view.png    the game's 640 x 480 view, centred on the figure,
//   OUTDIR/<area>-arrows-x2.png  the four arrows on a field of that area's floor.
// Pictures are read through the game's own bitmap reader and drawn keyed (5-6-5 value 0
// is transparent), each centred the way the maze centres it, so a gap, a seam or a black
// fringe shows here as it would in the game. It also counts the key pixels left inside a
// field of floor tiles and inside a block of wall tiles (black holes in the maze) and
// fails when there are any. AREA is the tiles' prefix, as in genwood-wall.bmp.
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "PngFile.h"
#include "platform/BitmapFile.h"

namespace {

namespace fs = std::filesystem;

constexpr int kHalfWidth = 54;   // a cell's step across the screen
constexpr int kHalfHeight = 14;  // and down it
constexpr int kBob = 40;         // the markers' float, within the maze's 35..45

// '1' wall, '0' floor, '2' exit, 'E' event, 'A' the arrow's cell, 'F' the figure's cell.
const std::vector<std::string> kMaze = {
    "111111111111",
    "1000000E0001",
    "101101111101",
    "10010E000101",
    "1101F00A0201",
    "100100000111",
    "101111010111",
    "120000010001",
    "111111111111",
};

using Picture = platform::Image565;

struct Pictures {
  Picture wall, floor, marker, ring, ladder;
  std::vector<Picture> arrows;  // RU, LU, RD, LD
};

struct Canvas {
  int width = 0;
  int height = 0;
  std::vector<std::uint16_t> pixels;

  Canvas(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * h, 0) {}

  // Keyed copy with the picture's top-left corner at (left, top).
  void DrawKeyed(const Picture& picture, int left, int top) {
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const std::uint16_t p = picture.pixels[y * picture.width + x];
        const int cx = left + x;
        const int cy = top + y;
        if (p == 0 || cx < 0 || cy < 0 || cx >= width || cy >= height) continue;
        pixels[cy * width + cx] = p;
      }
    }
  }
  // Centred on (x, y) the way the maze centres a picture: left = x - w/2, top = y - h/2.
  void DrawCentred(const Picture& picture, int x, int y) {
    DrawKeyed(picture, x - picture.width / 2, y - picture.height / 2);
  }
  void FillBox(int left, int top, int w, int h, std::uint16_t colour) {
    for (int y = top; y < top + h; ++y) {
      for (int x = left; x < left + w; ++x) {
        if (x >= 0 && y >= 0 && x < width && y < height) pixels[y * width + x] = colour;
      }
    }
  }
};

std::uint16_t Pack565(int r, int g, int b) {
  return static_cast<std::uint16_t>(((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3));
}

bool WriteScaled(const Canvas& canvas, int scale, const fs::path& path) {
  baker::RgbaImage out{canvas.width * scale, canvas.height * scale, {}};
  out.pixels.reserve(static_cast<std::size_t>(out.width) * out.height);
  for (int y = 0; y < out.height; ++y) {
    for (int x = 0; x < out.width; ++x) {
      const std::uint16_t p = canvas.pixels[(y / scale) * canvas.width + x / scale];
      // 5-6-5 widened the usual way, the top bits repeated below.
      const int r = (p >> 11) & 31, g = (p >> 5) & 63, b = p & 31;
      out.pixels.push_back({static_cast<std::uint8_t>((r << 3) | (r >> 2)), static_cast<std::uint8_t>((g << 2) | (g >> 4)),
                            static_cast<std::uint8_t>((b << 3) | (b >> 2)), 255});
    }
  }
  std::string error;
  if (!baker::WritePng(path.string(), out, error)) {
    std::fprintf(stderr, "maze-preview: %s\n", error.c_str());
    return false;
  }
  return true;
}

bool Load(const fs::path& dat, const std::string& name, Picture& into) {
  auto image = platform::LoadBitmapFile((dat / name).string());
  if (!image) {
    std::fprintf(stderr, "maze-preview: cannot read %s\n", (dat / name).string().c_str());
    return false;
  }
  into = std::move(*image);
  return true;
}

// The maze in the maze's order: row by row, each row left to right; per cell the tile, the
// ring and marker, the figure; the arrow after every cell.
void DrawMaze(Canvas& canvas, int originX, int originY, const Pictures& p) {
  int arrowX = 0, arrowY = 0;
  for (int y = 0; y < static_cast<int>(kMaze.size()); ++y) {
    for (int x = 0; x < static_cast<int>(kMaze[y].size()); ++x) {
      const char c = kMaze[y][x];
      const int sx = originX + (x - y) * kHalfWidth;
      const int sy = originY + (x + y) * kHalfHeight;
      const Picture& tile = c == '1' ? p.wall : p.floor;
      canvas.DrawKeyed(tile, sx - tile.width / 2, sy - tile.height);
      if (c == 'E' || c == '2') {
        canvas.DrawCentred(p.ring, sx, sy - kHalfHeight);
        const Picture& floating = c == 'E' ? p.marker : p.ladder;
        canvas.DrawCentred(floating, sx, sy - floating.height / 2 - kHalfHeight - kBob);
      }
      if (c == 'F') {
        // A figure-sized box, feet on the diamond's centre, outlined so it reads anywhere.
        canvas.FillBox(sx - 16, sy - kHalfHeight - 64, 32, 64, Pack565(60, 40, 120));
        canvas.FillBox(sx - 14, sy - kHalfHeight - 62, 28, 60, Pack565(230, 120, 200));
      }
      if (c == 'A') {
        arrowX = sx;
        arrowY = sy - kHalfHeight;
      }
    }
  }
  canvas.DrawCentred(p.arrows[0], arrowX, arrowY);
}

// Lays `tile` over a block of cells x cells and counts the key pixels left inside the
// diamonds of the inner cells, whose neighbours on every side are drawn too.
int HolesInBlock(const Picture& tile, int cells) {
  Canvas canvas(2 * kHalfWidth * cells + tile.width, 2 * kHalfHeight * cells + tile.height + 2 * kHalfHeight);
  const int originX = kHalfWidth * cells + tile.width / 2;
  const int originY = tile.height;
  for (int y = 0; y < cells; ++y) {
    for (int x = 0; x < cells; ++x) {
      canvas.DrawKeyed(tile, originX + (x - y) * kHalfWidth - tile.width / 2, originY + (x + y) * kHalfHeight - tile.height);
    }
  }
  int holes = 0;
  for (int y = 1; y < cells - 1; ++y) {
    for (int x = 1; x < cells - 1; ++x) {
      const double cx = originX + (x - y) * kHalfWidth + 0.5;
      const double cy = originY + (x + y) * kHalfHeight - kHalfHeight;
      for (int py = static_cast<int>(cy) - kHalfHeight; py < cy + kHalfHeight; ++py) {
        for (int px = static_cast<int>(cx) - kHalfWidth - 1; px < cx + kHalfWidth + 1; ++px) {
          const double u = std::abs(px + 0.5 - cx) / kHalfWidth + std::abs(py + 0.5 - cy) / kHalfHeight;
          if (u <= 1.0 && canvas.pixels[py * canvas.width + px] == 0) ++holes;
        }
      }
    }
  }
  return holes;
}

bool Preview(const fs::path& dat, const fs::path& out, const std::string& area) {
  Pictures p;
  p.arrows.resize(4);
  const std::vector<std::pair<std::string, Picture*>> files = {
      {area + "-wall.bmp", &p.wall},      {area + "-floor.bmp", &p.floor},  {"maze-point.bmp", &p.marker},
      {"maze-point2.bmp", &p.ring},       {"maze-ladder.bmp", &p.ladder},   {"arrow-RU.bmp", &p.arrows[0]},
      {"arrow-LU.bmp", &p.arrows[1]},     {"arrow-RD.bmp", &p.arrows[2]},   {"arrow-LD.bmp", &p.arrows[3]}};
  bool loaded = true;
  for (const auto& [name, into] : files) loaded = Load(dat, name, *into) && loaded;
  if (!loaded) return false;
  const std::string base = (out / area).string();

  // The whole maze.
  const int rows = static_cast<int>(kMaze.size());
  const int columns = static_cast<int>(kMaze[0].size());
  Canvas whole((rows + columns) * kHalfWidth + 2 * kHalfWidth,
               (rows + columns) * kHalfHeight + p.wall.height + kBob + 2 * kHalfHeight);
  DrawMaze(whole, rows * kHalfWidth + kHalfWidth, p.wall.height + kBob, p);
  bool ok = WriteScaled(whole, 1, base + ".png") && WriteScaled(whole, 2, base + "-x2.png");

  // The game's view: the figure's diamond centre on the screen's centre.
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < columns; ++x) {
      if (kMaze[y][x] != 'F') continue;
      Canvas view(640, 480);
      DrawMaze(view, 320 - (x - y) * kHalfWidth, 240 + kHalfHeight - (x + y) * kHalfHeight, p);
      ok = WriteScaled(view, 1, base + "-view.png") && ok;
    }
  }

  // The four arrows on a field of floor, one to a cell.
  Canvas field(10 * kHalfWidth, 8 * kHalfHeight);
  for (int y = -6; y < 12; ++y) {
    for (int x = -6; x < 12; ++x) {
      const int sx = (x - y) * kHalfWidth + kHalfWidth;
      const int sy = (x + y) * kHalfHeight;
      field.DrawKeyed(p.floor, sx - p.floor.width / 2, sy - p.floor.height);
    }
  }
  for (int i = 0; i < 4; ++i) field.DrawCentred(p.arrows[i], kHalfWidth + 2 * kHalfWidth * i + kHalfWidth, 4 * kHalfHeight);
  ok = WriteScaled(field, 2, base + "-arrows-x2.png") && ok;

  const int floorHoles = HolesInBlock(p.floor, 5);
  const int wallHoles = HolesInBlock(p.wall, 5);
  std::printf("%-10s floor holes %d, wall holes %d\n", area.c_str(), floorHoles, wallHoles);
  return ok && floorHoles == 0 && wallHoles == 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: maze-preview DAT OUTDIR [AREA...]\n");
    return 2;
  }
  const fs::path dat = argv[1];
  const fs::path out = argv[2];
  std::vector<std::string> areas;
  for (int i = 3; i < argc; ++i) areas.emplace_back(argv[i]);
  if (areas.empty()) areas = {"genwood", "beachcave", "ruins", "icecave", "castle", "forest2"};
  std::error_code ec;
  fs::create_directories(out, ec);
  bool ok = true;
  for (const auto& area : areas) ok = Preview(dat, out, area) && ok;
  return ok ? 0 : 1;
}
