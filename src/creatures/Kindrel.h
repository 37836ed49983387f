#pragma once
// One creature: a member of the player's party or the opponent of a combat. Its maximum
// hit points and the experience of its next level are derived from the species and the
// level whenever needed; they are never stored.
#include <cstdint>
#include <memory>

#include "creatures/SpeciesTable.h"
#include "creatures/SpellTable.h"
#include "creatures/StatusEffect.h"
#include "graphics/Picture.h"

// How many of its species' five spells a creature of this level can use: 2 up to level 4,
// then one more every four levels, 5 from level 13 on.
int SpellsKnownAtLevel(int level);
// The total experience that takes a creature of this level to the next: 10 x level².
std::uint32_t NextLevelExperience(int level);
// The total experience at which this level began: 10 x (level - 1)². A creature caught at
// some level joins the party with this much.
std::uint32_t LevelStartExperience(int level);

class Kindrel {
 public:
  // A new creature of the species at the level, at full health with clean status values
  // and its species' picture; null for a species outside 0..35 or a level below 1.
  static std::unique_ptr<Kindrel> Create(int speciesIndex, int level);
  Kindrel(const SpeciesInfo& species, int level);
  ~Kindrel();
  Kindrel(const Kindrel&) = delete;
  Kindrel& operator=(const Kindrel&) = delete;

  // Frees the picture; the owner frees the record.
  void Release();
  // Replaces the name, cut to 63 characters; a null text gives an empty name.
  void SetName(const char* text);

  int MaxHitPoints() const { return species->toughness * level; }
  std::uint32_t NextLevelExperience() const { return ::NextLevelExperience(level); }
  bool IsFainted() const { return hitPoints <= 0; }
  // The species' spell in one of the five slots (0..4; a slot outside is taken as the
  // nearest one).
  const SpellInfo& SpellInSlot(int slot) const;

  // Adds the award; true when the creature rose a level. At most one level per award,
  // however large: a creature left above its next threshold rises again at its next award.
  // A new level brings full hit points.
  bool AddExperience(std::uint32_t amount);
  // 0 when no status value is below 0, else 1 + the first such StatusEffect.
  int FirstActiveStatus() const;
  // Packed colour of the hit-point bar: green above half, red at a quarter or less,
  // yellow between.
  std::uint32_t HitPointColour() const;
  // Takes up to `amount` hit points, never more than the creature has; returns how many
  // it lost. A negative amount takes nothing.
  int LoseHitPoints(int amount);
  // Full hit points and clean status values (the home's healing).
  void Heal();
  // Every status value back to 0 (the end of a combat).
  void ClearStatus();

  // The status rules.
  //
  // Whether the creature resists the effect this time: one roll of the game's generator,
  // r = (0..99) x 0.01, resists when r <= the species' resistance. A resistance of 0 still
  // resists a roll of 0; a resistance of 1.0 always resists.
  bool ResistsEffect(StatusEffect effect);
  // Lays the effect from a caster of the given level unless the creature resists (one
  // roll): the value falls by 1.0, and poison sets the damage per turn to
  // casterLevel / 4 + 1. A resisted effect changes nothing. True when it landed.
  bool LayEffect(StatusEffect effect, int casterLevel);
  // Raises one statistic by the amount (a caster's own boost); no resistance.
  void BoostStatus(StatusEffect effect, float amount);
  // The end of an exchange: every value below 0 rises by 0.25, stopping at 0. Boosts
  // (values above 0) stay until the combat ends.
  void RecoverStatus();
  // The turns announced when an effect lands: the number of recovery steps that bring the
  // value back to 0, less one (3 after one landing on a clean value). -1 when the value is
  // not below 0.
  int RemainingTurns(StatusEffect effect) const;

  char name[64];
  const SpeciesInfo* species;
  std::int32_t level;
  std::uint32_t experience;
  std::int32_t hitPoints;
  float status[kStatusEffectCount];
  std::int32_t spellsKnown;
  std::int32_t poisonDamage;
  std::unique_ptr<Picture> picture;
};

// True when a resistance resists the given roll (0..99): roll x 0.01, in double precision,
// is at most the resistance.
bool ResistsRoll(float resistance, int roll);
