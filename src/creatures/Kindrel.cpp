#include "creatures/Kindrel.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

#include "graphics/Display.h"
#include "shell/Random.h"

int SpellsKnownAtLevel(int level) { return std::min((level - 1) / 4 + 2, kSpeciesSpellCount); }

std::uint32_t NextLevelExperience(int level) {
  const auto l = static_cast<std::uint32_t>(level);
  return 10u * l * l;
}

std::uint32_t LevelStartExperience(int level) { return NextLevelExperience(level - 1); }

std::unique_ptr<Kindrel> Kindrel::Create(int speciesIndex, int level) {
  const SpeciesInfo* row = SpeciesAt(speciesIndex);
  if (!row || level < 1) return nullptr;
  return std::make_unique<Kindrel>(*row, level);
}

Kindrel::Kindrel(const SpeciesInfo& row, int startLevel) {
  level = startLevel;
  experience = 0;
  species = &row;
  std::memset(name, 0, sizeof name);
  SetName(row.name);
  std::fill(std::begin(status), std::end(status), 0.0f);
  spellsKnown = SpellsKnownAtLevel(startLevel);
  picture = std::make_unique<Picture>();
  picture->LoadPicture(row.pictureFile);
  poisonDamage = 0;
  hitPoints = MaxHitPoints();
}

Kindrel::~Kindrel() = default;

void Kindrel::Release() { picture.reset(); }

void Kindrel::SetName(const char* text) {
  std::memset(name, 0, sizeof name);
  if (text) std::memcpy(name, text, strnlen(text, sizeof name - 1));
}

const SpellInfo& Kindrel::SpellInSlot(int slot) const {
  const int clamped = std::clamp(slot, 0, kSpeciesSpellCount - 1);
  return spellTable[species->spells[clamped]];
}

bool Kindrel::AddExperience(std::uint32_t amount) {
  experience += amount;
  if (experience < ::NextLevelExperience(level)) return false;
  const int oldLevel = level;
  level = oldLevel + 1;
  hitPoints = MaxHitPoints();
  spellsKnown = std::min(oldLevel / 4 + 2, kSpeciesSpellCount);
  return true;
}

int Kindrel::FirstActiveStatus() const {
  for (int i = 0; i < kStatusEffectCount; ++i)
    if (status[i] < 0.0f) return i + 1;
  return 0;
}

std::uint32_t Kindrel::HitPointColour() const {
  const int most = MaxHitPoints();
  if (2 * hitPoints > most) return PackColour(0, 255, 0);
  if (4 * hitPoints <= most) return PackColour(255, 0, 0);
  return PackColour(255, 255, 0);
}

int Kindrel::LoseHitPoints(int amount) {
  const int lost = std::clamp(amount, 0, std::max(hitPoints, 0));
  hitPoints -= lost;
  return lost;
}

void Kindrel::Heal() {
  hitPoints = MaxHitPoints();
  ClearStatus();
}

void Kindrel::ClearStatus() { std::fill(std::begin(status), std::end(status), 0.0f); }

bool ResistsRoll(float resistance, int roll) {
  const double r = static_cast<double>(roll) * 0.01;
  return r <= static_cast<double>(resistance);
}

bool Kindrel::ResistsEffect(StatusEffect effect) { return ResistsRoll(species->resistance[effect], Roll(100)); }

bool Kindrel::LayEffect(StatusEffect effect, int casterLevel) {
  if (ResistsEffect(effect)) return false;
  status[effect] -= 1.0f;
  if (effect == Poisoned) poisonDamage = casterLevel / 4 + 1;
  return true;
}

void Kindrel::BoostStatus(StatusEffect effect, float amount) { status[effect] += amount; }

void Kindrel::RecoverStatus() {
  for (float& value : status) {
    if (value < 0.0f) value = std::min(value + 0.25f, 0.0f);
  }
}

int Kindrel::RemainingTurns(StatusEffect effect) const {
  const float value = status[effect];
  if (!(value < 0.0f)) return -1;
  // Values move in quarters, so the steps are the quarters below 0, rounded up.
  const double steps = std::ceil(-static_cast<double>(value) * 4.0);
  if (steps >= static_cast<double>(INT_MAX)) return INT_MAX - 1;
  return static_cast<int>(steps) - 1;
}
