// Any bytes as an area file: the reader never reads or writes outside what it was given,
// places every event on a cell of the grid or nowhere, gives every placed area corners
// inside the grid, and finds the start on an exit cell.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ui/List.h"
#include "world/AreaFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  int width = -1, height = -1;
  PreScanArea(content, &width, &height);
  if (width < 0 || height < 0) std::abort();
  if (static_cast<std::int64_t>(width) * height > kMostMazeCells) return 0;  // refused by the maze
  MazeGrid grid;
  grid.Create(width, height);
  List entries;
  AreaValues values;
  ReadArea(content, grid, entries, values);
  for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) {
    if (auto* event = dynamic_cast<MazeEvent*>(entry)) {
      const bool nowhere = event->x == -1 && event->y == -1;
      if (!nowhere && !grid.Inside(event->x, event->y)) std::abort();
      if (!nowhere && grid.At(event->x, event->y) != event->Symbol()) std::abort();
    } else if (auto* area = dynamic_cast<EncounterArea*>(entry)) {
      if (area->left == -1) continue;
      if (!grid.Inside(area->left, area->top) || !grid.Inside(area->right, area->bottom)) std::abort();
    } else {
      std::abort();
    }
  }
  for (std::uint8_t flag : grid.visible)
    if (flag != 1) std::abort();
  int x = -1, y = -1;
  if (FindStartCell(grid, &x, &y) && grid.At(x, y) != kExitCell) std::abort();
  return 0;
}
