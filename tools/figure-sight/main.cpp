// figure-sight [--data=FOLDER] [AREA...]
// Stands the walking figure, boy and girl, facing each way, on every walkable cell of each
// wild area (or of the areas named, as in "genwood"), lets the maze draw itself with the
// view centred there, and prints per area the share of the figure's pixels that stay in
// sight: the least, and every cell where less than half shows. Walls and tiles further down
// the screen cover the figure, as in the game. Exits 1 when any cell shows less than half.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "creatures/PlayerRecord.h"
#include "graphics/Display.h"
#include "platform/DataPath.h"
#include "platform/HeadlessBackend.h"
#include "platform/Messages.h"
#include "platform/Window.h"
#include "shell/Application.h"
#include "shell/Globals.h"
#include "screens/MainMenuScreen.h"
#include "world/AreaFile.h"
#include "world/LocationTable.h"
#include "world/MazeScreen.h"

namespace {

// The figure is painted in one colour that no tile uses, so that its pixels can be counted
// in the finished frame.
constexpr std::uint16_t kProbe = 0xF81F;

struct Sight {
  double share;
  MazeCell cell;
  int facing;
  bool male;
};

// Paints the standing frames' visible pixels in the probe colour; the count of them.
int PaintFigure(MazeScreen& maze, int facing) {
  Surface* frame = maze.figureFrames[facing * kStepFrames].surface.get();
  if (!frame) return 0;
  int count = 0;
  std::uint16_t* pixels = frame->Lock();
  for (int y = 0; y < frame->Height(); ++y) {
    for (int x = 0; x < frame->Width(); ++x) {
      std::uint16_t& p = pixels[static_cast<std::size_t>(y) * frame->Pitch() + x];
      if (p != 0) p = kProbe, ++count;
    }
  }
  frame->Unlock();
  return count;
}

// The figure's pixels in the picture the maze draws with the view centred on the cell, as a
// step there centres it.
int ProbePixelsAt(MazeScreen& maze, MazeCell figure, MazeCell view) {
  maze.grid.originX = (view.y - view.x) * (maze.grid.tileWidth / 2) + 320;
  maze.grid.originY = 240 - ((view.x + view.y) * maze.grid.tileHeight) / 2;
  maze.playerCell = maze.previousCell = figure;
  maze.walking = 0;
  maze.cursorCell = {-1000, -1000};  // the arrow far away
  // Only the figure's box is drawn and counted: the rest of the frame cannot hold it.
  const int w = maze.figureFrames[0].Width(), h = maze.figureFrames[0].Height(), hFloor = maze.floorPicture.Height();
  const Rect box{320 - w / 2 - 1, 240 - hFloor / 2 - h - 1, 320 + w - w / 2 + 1, 240 - hFloor / 2 + 1};
  theDisplay->ClipRect = box;
  maze.HandleMessage(0, platform::WM_PAINT, 0, 0);
  theDisplay->ResetClip();
  Surface* drawn = theDisplay->DrawTarget();
  const std::uint16_t* pixels = drawn->Lock();
  int count = 0;
  for (int y = std::max(box.top, 0); y < std::min(box.bottom, drawn->Height()); ++y) {
    const std::uint16_t* row = pixels + static_cast<std::size_t>(y) * drawn->Pitch();
    count += static_cast<int>(std::count(row + std::max(box.left, 0), row + std::min(box.right, drawn->Width()), kProbe));
  }
  drawn->Unlock();
  return count;
}

// Every (cell, facing) of one area for one figure.
void Measure(LocationInfo& place, bool male, std::vector<Sight>& sights) {
  thePlayer.StartNewGame();
  thePlayer.playerIsMale = male ? 1 : 0;
  thePlayer.currentLocation = &place;
  platform::HeadlessBackend backend;
  platform::InstallBackend(&backend);
  {
    Application application;
    application.StartUp("-F", [&place] { return new MazeScreen(1, "MAZE MODE", place.areaFile); }, ShutDownGame);
    auto* maze = dynamic_cast<MazeScreen*>(currentScreen);
    int figurePixels[kFacings] = {};
    for (int facing = 0; maze && facing < kFacings; ++facing) figurePixels[facing] = PaintFigure(*maze, facing);
    for (int y = 0; maze && y < maze->grid.height; ++y) {
      for (int x = 0; x < maze->grid.width; ++x) {
        if (maze->grid.At(x, y) == kWallCell) continue;
        const MazeCell cell{x, y};
        const int background = ProbePixelsAt(*maze, {-1000, -1000}, cell);
        for (int facing = 0; facing < kFacings; ++facing) {
          maze->facing = facing;
          const int seen = ProbePixelsAt(*maze, cell, cell) - background;
          const double share = figurePixels[facing] ? static_cast<double>(seen) / figurePixels[facing] : 0.0;
          sights.push_back({share, cell, facing, male});
        }
      }
    }
    application.ShutDown();
  }
  platform::InstallBackend(nullptr);
}

// The area's name as its file names it: "dat\\genwood.dat" is genwood.
std::string AreaName(const LocationInfo& place) {
  std::string name = place.areaFile;
  name = name.substr(name.find_last_of("\\/") + 1);
  return name.substr(0, name.find('.'));
}

}  // namespace

int main(int argc, char** argv) {
  std::string data = QUARNWICK_BUILD_DIR;
  std::vector<std::string> wanted;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--data=", 7) == 0) {
      data = argv[i] + 7;
    } else if (argv[i][0] == '-') {
      std::fprintf(stderr, "usage: figure-sight [--data=FOLDER] [AREA...]\n");
      return 2;
    } else {
      wanted.emplace_back(argv[i]);
    }
  }
  platform::SetDataRoot(data);
  int areas = 0, hidden = 0;
  for (LocationInfo& place : locationTable) {
    const std::string name = AreaName(place);
    if (place.areaFile[0] == '\0') continue;
    if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), name) == wanted.end()) continue;
    std::vector<Sight> sights;
    Measure(place, true, sights);
    Measure(place, false, sights);
    if (sights.empty()) {
      std::fprintf(stderr, "figure-sight: %s has no walkable cell to measure\n", name.c_str());
      return 1;
    }
    ++areas;
    const auto least = std::min_element(sights.begin(), sights.end(),
                                        [](const Sight& a, const Sight& b) { return a.share < b.share; });
    std::printf("%-10s %5zu stands, least in sight %3.0f %% (cell %d,%d)\n", name.c_str(), sights.size(),
                100.0 * least->share, least->cell.x, least->cell.y);
    for (const Sight& s : sights) {
      if (s.share >= 0.5) continue;
      ++hidden;
      std::printf("  below half: cell %d,%d facing %d, %s, %.0f %%\n", s.cell.x, s.cell.y, s.facing,
                  s.male ? "boy" : "girl", 100.0 * s.share);
    }
  }
  if (areas == 0) {
    std::fprintf(stderr, "figure-sight: no such area\n");
    return 2;
  }
  return hidden == 0 ? 0 : 1;
}
