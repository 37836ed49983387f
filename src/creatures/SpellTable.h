#pragma once
// The 36 spells. A spell either damages the other creature (and may lay a status effect
// on it) or, with a negative power, boosts one statistic of its caster. A spell's index is
// also its kind: tier x 12 + family, where the tier (0..2) grows the power and the family
// (0..11) decides what the spell does, its sounds and its picture in combat.
#include <cstdint>

#include "creatures/StatusEffect.h"

inline constexpr int kSpellCount = 36;
inline constexpr int kSpellFamilies = 12;

struct SpellInfo {
  std::int32_t index;  // also the spell's kind
  char name[64];
  // 0: no damage; 1, 2, 3: damage of that many times the caster's level; negative: the
  // caster casts it on itself (never misses, no damage, no target in its message).
  float power;
  // Per StatusEffect: positive lays the effect on the target unless it resists (only the
  // sign counts); negative raises the caster's value by the magnitude.
  float effect[kStatusEffectCount];
};

enum SpellFamily : int {
  kFamilyDamage = 0,
  kFamilyPoison = 1,
  kFamilyParalyze = 2,
  kFamilyAccuracyDown = 3,
  kFamilyDamageOffenseDown = 4,
  kFamilySlow = 5,
  kFamilyDefenseDown = 6,
  kFamilySpeedDown = 7,
  kFamilyAccuracyBoost = 8,
  kFamilyDefenseBoost = 9,
  kFamilyOffenseBoost = 10,
  kFamilySpeedBoost = 11,
};

// The spells by name, for tables and tests.
enum SpellIndex : int {
  kZap = 0,
  kPoisonSting = 1,
  kHypnotize = 2,
  kDuststorm = 3,
  kSlam = 4,
  kWeary = 5,
  kGlare = 6,
  kWeb = 7,
  kConcentrate = 8,
  kPowerShell = 9,
  kAnnoyance = 10,
  kSpeedUp = 11,
  kPowerZap = 12,
  kPoisonBite = 13,
  kPetrify = 14,
  kSandstorm = 15,
  kPowerSlam = 16,
  kDreary = 17,
  kTrip = 18,
  kAcidGlue = 19,
  kFocus = 20,
  kHyperShell = 21,
  kAnger = 22,
  kAccelerate = 23,
  kMegaZap = 24,
  kPoisonArrow = 25,
  kGravityTrap = 26,
  kWhirlwind = 27,
  kGrandSlam = 28,
  kTimeRazor = 29,
  kAcidSpray = 30,
  kGlueCoat = 31,
  kMeditate = 32,
  kMegaShell = 33,
  kRage = 34,
  kLightSpeed = 35,
};

extern const SpellInfo spellTable[kSpellCount];

inline constexpr int SpellTier(int spellKind) { return spellKind / kSpellFamilies; }
inline constexpr int SpellFamilyOf(int spellKind) { return spellKind % kSpellFamilies; }

// The three sound tables, indexed by spell kind: played when the spell is announced, when
// its picture leaves the caster and when it hits. A name starting with 'X' means silence.
extern const char spellCastSounds[kSpellCount][64];
extern const char spellFlightSounds[kSpellCount][64];
extern const char spellImpactSounds[kSpellCount][64];

// True when a sound table entry names a file (its first character is not 'X').
inline bool HasSpellSound(const char* name) { return name && name[0] != '\0' && name[0] != 'X'; }
