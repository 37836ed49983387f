#include "world/LocationTable.h"

// At program start every place but the five towers after the first is open; a new game
// closes the later wild areas again.
LocationInfo locationTable[kLocationCount] = {
    {"Home", kLocationHome, 0, 320, 200, 1, ""},
    {"Genwood Forest", kLocationForest, 0, 320, 240, 1, "dat\\genwood.dat"},
    {"Beach Caves", kLocationCave, 1, 80, 190, 1, "dat\\beachcave.dat"},
    {"Fangdorf Ruins", kLocationRuins, 2, 230, 280, 1, "dat\\ruins.dat"},
    {"Ice Caves", kLocationCave, 3, 490, 50, 1, "dat\\icecave.dat"},
    {"Stronhiem Castle", kLocationCastle, 4, 200, 90, 1, "dat\\castle.dat"},
    {"Dismal Forest", kLocationForest, 5, 490, 170, 1, "dat\\forest2.dat"},
    {"Temple of Knowledge", kLocationTemple, 0, 250, 210, 1, ""},
    {"Market", kLocationMarket, 0, 390, 200, 1, ""},
    {"Earth Wizard", kLocationTower, 0, 320, 140, 1, ""},
    {"Storm Wizard", kLocationTower, 1, 70, 110, 0, ""},
    {"Ocean Wizard", kLocationTower, 2, 250, 350, 0, ""},
    {"Ice Wizard", kLocationTower, 3, 560, 80, 0, ""},
    {"Fire Wizard", kLocationTower, 4, 530, 230, 0, ""},
    {"Vile Wizard", kLocationTower, 5, 140, 280, 0, ""},
};

int LocationRow(const LocationInfo* place) {
  for (int row = 0; row < kLocationCount; ++row)
    if (place == &locationTable[row]) return row;
  return -1;
}

bool IsWildArea(const LocationInfo& place) {
  return place.kind == kLocationCave || place.kind == kLocationForest || place.kind == kLocationRuins ||
         place.kind == kLocationCastle;
}

void ResetLocationsForNewGame() {
  for (LocationInfo& place : locationTable) {
    const bool always = place.kind == kLocationHome || place.kind == kLocationMarket || place.kind == kLocationTemple;
    place.open = (always || place.tier == 0) ? 1 : 0;
  }
}

void OpenNextTier(int wonTier) {
  for (LocationInfo& place : locationTable)
    if (place.tier == wonTier + 1 && place.open == 0) place.open = 1;
}
