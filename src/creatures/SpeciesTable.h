#pragma once
// The 36 species of Kindrel. A species is named everywhere by its index 0..35 (saved
// games store only the index). The table is constant apart from encounterLevel, which the
// code that prepares a combat writes into a row just before handing it to the combat.
#include <cstdint>

#include "creatures/SpellTable.h"
#include "creatures/StatusEffect.h"

inline constexpr int kSpeciesCount = 36;
inline constexpr int kSpeciesSpellCount = 5;

struct SpeciesInfo {
  std::int32_t index;
  char name[64];
  char pictureFile[64];
  std::int32_t toughness;  // hit points per level
  std::int32_t speed;
  std::int32_t smarts;
  float resistance[kStatusEffectCount];  // chance 0.0..1.0 to resist, per StatusEffect
  std::int32_t spells[kSpeciesSpellCount];  // spell indices, in the order they are learnt
  std::int32_t encounterLevel;  // level of the next opponent made from this row
};

extern SpeciesInfo speciesTable[kSpeciesCount];

// The row of a species, or null when the index is outside 0..35.
SpeciesInfo* SpeciesAt(int index);
