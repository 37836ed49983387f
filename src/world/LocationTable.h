#pragma once
// The fifteen places of the island map. The table is constant apart from the open flags,
// which a new game resets, a beaten wizard extends to the next tier and a loaded game
// reads from its file. The row order is the drawing order, the order in which the map
// looks for the place under the pointer and the order of the flags in a saved game.
#include <cstdint>

enum LocationKind : int {
  kLocationHome = 0,
  kLocationCave = 1,
  kLocationTower = 2,
  kLocationMarket = 3,
  kLocationTemple = 4,
  kLocationForest = 5,
  kLocationRuins = 6,
  kLocationCastle = 7,
};

inline constexpr int kLocationCount = 15;
inline constexpr int kLocationKinds = 8;

struct LocationInfo {
  char name[64];
  std::int32_t kind;  // LocationKind; also the index of the place's map picture
  // When a wild area or tower opens; for a tower also its wizard's index; 0 for the home,
  // temple and market.
  std::int32_t tier;
  std::int32_t mapX;
  std::int32_t mapY;
  std::int32_t open;  // 1: drawn and can be entered
  char areaFile[68];  // the wild area's file; empty for other places
};

extern LocationInfo locationTable[kLocationCount];

// The row of a place of the table, or -1 for null or anything outside it.
int LocationRow(const LocationInfo* place);

// Wild areas (cave, forest, ruins, castle) are walked as mazes.
bool IsWildArea(const LocationInfo& place);

// A new game: open are the home, the temple, the market and every place of tier 0 (the
// first wild area and the first tower); everything else is closed.
void ResetLocationsForNewGame();
// A wizard of the given tier has been beaten: every closed place of the next tier opens,
// the next wild area with the next tower.
void OpenNextTier(int wonTier);
