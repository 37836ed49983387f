#pragma once
// Which wild Kindrel an encounter area sends: its species and level, drawn from the
// area's two ranges as the rules say, for any ranges a file may give.
#include <cstdint>

class EncounterArea;

// The highest level an encounter can have. A creature's experience for its next level,
// 10 x level x level, is an unsigned 32-bit number: 20724 is the last level for which it
// fits, so that a creature met at any level can still earn and count its experience.
inline constexpr std::int32_t kMostEncounterLevel = 20724;

struct EncounterDraw {
  int species;
  int level;
};

// species = speciesMin + rand() % (speciesMax - speciesMin + 1); then the level: levelMin
// when the two ends are equal, else levelMin + rand() % (levelMax - levelMin). A reversed
// range is drawn by the same formula (the remainder takes the dividend's sign, so it
// reaches above the minimum). Only what the game cannot hold is mended, after the draw and
// with the random calls unchanged: a species outside the table, a level below 1 or above
// kMostEncounterLevel, and a remainder by zero, which gives the range's minimum.
EncounterDraw DrawEncounter(const EncounterArea& area);
