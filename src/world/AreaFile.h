#pragma once
// The file of one wild area: a text file of keyword lines. ROW lines give the maze's rows
// of cell characters; ART names the wall and floor tiles, COMBATART and COMBATLOC the
// background and the creature positions of the area's combats; EVENT and AREA lines
// begin an event or an encounter area, and the text lines after an EVENT (MAINTEXT,
// NEEDTEXT, NEEDS, GIVES) belong to it. Keywords match in any letter case by their
// beginning ("rows" is ROW), in a fixed order; any other line is a comment.
//
// The file is read twice: a pre-scan for the grid's size, then the read proper. What no
// rule covers is decided so that no file can break the game: rows are cut at the grid's
// width, cells that no row sets are walls, and an area symbol found in one cell only makes
// a one-cell area.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shell/ScreenObject.h"

class List;

// Cell characters.
inline constexpr std::int32_t kFloorCell = '0';
inline constexpr std::int32_t kWallCell = '1';
inline constexpr std::int32_t kExitCell = '2';
// Symbols from 'a' upward are hidden: no marker shows them.
inline constexpr std::int32_t kFirstHiddenSymbol = 'a';

// A grid larger than this many cells is refused: no real area comes near it.
inline constexpr std::int64_t kMostMazeCells = 1 << 20;

struct MazeGrid {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t tileWidth = 109;
  std::int32_t tileHeight = 28;
  std::int32_t originX = 0;
  std::int32_t originY = 0;
  std::vector<std::int32_t> cells;    // row-major, each a signed character widened
  std::vector<std::uint8_t> visible;  // row-major; 0 is drawn as nothing

  // Every cell a wall, every visible flag 0.
  void Create(int w, int h);
  bool Inside(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
  // The cell's character; a wall outside the grid.
  std::int32_t At(int x, int y) const;
  std::int32_t& Cell(int x, int y) { return cells[static_cast<std::size_t>(y) * width + x]; }
};

class MazeEvent : public ScreenObject {
 public:
  explicit MazeEvent(std::int32_t symbol);
  ~MazeEvent() override;
  std::int32_t Symbol() const { return static_cast<std::int32_t>(id); }

  std::int32_t x = -1;
  std::int32_t y = -1;
  char mainText[2048] = {};
  char needText[2048] = {};
  char needs[1024] = {};
  char gives[1024] = {};
};

class EncounterArea : public ScreenObject {
 public:
  explicit EncounterArea(std::int32_t symbol);
  ~EncounterArea() override;
  std::int32_t Symbol() const { return static_cast<std::int32_t>(id); }
  bool Contains(int x, int y) const { return left <= x && x <= right && top <= y && y <= bottom; }

  std::int32_t top = -1;
  std::int32_t bottom = -1;
  std::int32_t left = -1;
  std::int32_t right = -1;
  std::int32_t speciesMin = 0;
  std::int32_t speciesMax = 0;
  std::int32_t levelMin = 1;
  std::int32_t levelMax = 1;
};

// The values that hold for the whole maze.
struct AreaValues {
  char wallFile[128] = {};
  char floorFile[128] = {};
  std::int32_t combatPositions[4] = {0, 0, 0, 0};  // player x, y, opponent x, y
  char combatBackground[128] = "dat\\comback-scar-for.bmp";
};

// What the reader had to make of a file beyond its grammar; all 0 for a well-made file.
struct AreaRepairs {
  int rowsCut = 0;       // rows longer than the grid's width, cut at it
  int rowsShort = 0;     // rows shorter than the width, the rest of them walls
  int rowsUnended = 0;   // ROW lines without a line end, which lose their last character
  int oneCellAreas = 0;  // area symbols found in one cell only
};

// Counts the ROW lines (height); the last ROW line's argument without its line end gives
// the width.
void PreScanArea(std::string_view content, int* width, int* height);

// Fills the grid (created at the pre-scan's size), appends the events and areas to the
// entries in the order in which they were finished, places them by the cell pass, makes
// every cell visible and sets the maze-wide values. Counts the repairs when asked.
void ReadArea(std::string_view content, MazeGrid& grid, List& entries, AreaValues& values,
              AreaRepairs* repairs = nullptr);

// The start: the last exit cell in row-major order. False when the grid has none.
bool FindStartCell(const MazeGrid& grid, int* x, int* y);

// The whole file named as the game names it ("dat\\genwood.dat"). False with the reason
// ("is missing", "cannot be read: ...") when it cannot be read.
bool LoadAreaText(const char* gameName, std::string* content, std::string* reason);
