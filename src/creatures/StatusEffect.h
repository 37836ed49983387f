#pragma once
// The seven status effects shared by species (resistances), spells (what they lay or
// boost) and Kindrels (their current values). The first three are timed conditions; the
// last four modify a statistic.
enum StatusEffect : int {
  Paralyzed = 0,
  Poisoned = 1,
  Slow = 2,
  Accuracy = 3,
  Defense = 4,
  Offense = 5,
  Speed = 6,
};

inline constexpr int kStatusEffectCount = 7;
