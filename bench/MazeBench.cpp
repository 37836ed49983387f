// What a maze costs: one whole frame of a 48 x 48 area with a tile on every cell and a
// full weather pool, and the reading of such an area's file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "BenchGame.h"
#include "creatures/PlayerRecord.h"
#include "platform/AtomicFile.h"
#include "ui/List.h"
#include "world/MazeScreen.h"

namespace {

// A 48 x 48 area: walls round the edge and in a regular pattern inside, an exit at the
// bottom, marked events and encounter areas.
std::string LargeArea() {
  std::string text = "ART dat\\genwood-wall.bmp dat\\genwood-floor.bmp\n";
  for (int y = 0; y < 48; ++y) {
    std::string row(48, '0');
    for (int x = 0; x < 48; ++x) {
      if (x == 0 || y == 0 || x == 47 || y == 47 || (x % 6 == 3 && y % 4 != 1)) row[x] = '1';
      else if (x % 8 == 5 && y % 8 == 5) row[x] = static_cast<char>('A' + (x + y) % 20);
      else if (y >= 10 && y < 40) row[x] = 'a';
    }
    if (y == 47) row[24] = '2';
    text += "ROW " + row + "\n";
  }
  for (char c = 'A'; c < 'A' + 20; ++c) text += std::string("EVENT ") + c + "\nMAINTEXT A sign by the path.\n";
  return text + "AREA a 0 6 1 3\n";
}

std::string WriteLargeArea() {
  const std::string path = (std::filesystem::temp_directory_path() / ("quarnwick-bench-" + std::to_string(::getpid()) + ".dat")).string();
  std::ofstream(path) << LargeArea();
  return path;
}

void KeepAlive(Particle*) {}

void MazeFrame48(benchmark::State& state) {
  BenchGame game;
  thePlayer.StartNewGame();
  thePlayer.currentLocation = &locationTable[1];
  const std::string path = WriteLargeArea();
  MazeScreen maze(1, "MAZE MODE", path.c_str());
  Fill(maze.wallPicture, 109, 70);
  Fill(maze.floorPicture, 109, 28);
  maze.CentreOn({24, 24});
  for (int i = 0; i < 1000; ++i) maze.weather->AddParticle(200, 200, 255, 320.0f, 240.0f, 0.0f, 0.0f, 1 << 30, KeepAlive);
  for (auto _ : state) benchmark::DoNotOptimize(maze.Tick(0));
  std::filesystem::remove(path);
  thePlayer.ReleaseParty();
}
BENCHMARK(MazeFrame48)->Unit(benchmark::kMicrosecond);

void ReadArea48(benchmark::State& state) {
  const std::string path = WriteLargeArea();
  for (auto _ : state) {
    std::string content, reason;
    LoadAreaText(path.c_str(), &content, &reason);
    int width = 0, height = 0;
    PreScanArea(content, &width, &height);
    MazeGrid grid;
    grid.Create(width, height);
    List entries;
    AreaValues values;
    ReadArea(content, grid, entries, values);
    benchmark::DoNotOptimize(grid.cells.data());
  }
  std::filesystem::remove(path);
}
BENCHMARK(ReadArea48)->Unit(benchmark::kMicrosecond);

}  // namespace
