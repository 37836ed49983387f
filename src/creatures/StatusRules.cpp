#include "creatures/StatusRules.h"

#include <cstdio>

const char statusEffectTexts[2 * kStatusEffectCount][128] = {
    "is paralyzed for %d more turns!",
    "is poisoned for %d more turns!",
    "is moving at half-speed for %d more turns!",
    "has less accuracy!",
    "has less defense!",
    "has less power!",
    "has less speed!",
    "resists being paralyzed!",
    "resists being poisoned!",
    "resists being slowed down!",
    "resists being made less accurate!",
    "resists being made less defensive!",
    "resists being made less powerful!",
    "resists being made less speedy!",
};

namespace {

// The name and the text make one format: the name and the number are its arguments, so
// that a '%' in a creature's name is shown as it is.
std::string Message(const Kindrel& target, bool targetIsOpponent, const char* text, int number) {
  const std::string format = std::string("%s ") + text;
  char buffer[512];
  std::snprintf(buffer, sizeof buffer, format.c_str(), CombatName(target, targetIsOpponent).c_str(), number);
  return buffer;
}

}  // namespace

std::string CombatName(const Kindrel& creature, bool isOpponent) {
  return (isOpponent ? "The " : "") + std::string(creature.name);
}

std::string StatusLandedMessage(const Kindrel& target, bool targetIsOpponent, StatusEffect effect) {
  return Message(target, targetIsOpponent, statusEffectTexts[effect], target.RemainingTurns(effect));
}

std::string StatusResistedMessage(const Kindrel& target, bool targetIsOpponent, StatusEffect effect) {
  return Message(target, targetIsOpponent, statusEffectTexts[kStatusEffectCount + effect], 0);
}

bool ApplySpellEffects(const SpellInfo& spell, Kindrel& caster, Kindrel& target, bool targetIsOpponent,
                       std::string* message) {
  for (int i = 0; i < kStatusEffectCount; ++i) {
    const auto effect = static_cast<StatusEffect>(i);
    const float entry = spell.effect[i];
    if (entry < 0.0f) {
      caster.BoostStatus(effect, -entry);
    } else if (entry > 0.0f) {
      const bool landed = target.LayEffect(effect, caster.level);
      const std::string text = landed ? StatusLandedMessage(target, targetIsOpponent, effect)
                                      : StatusResistedMessage(target, targetIsOpponent, effect);
      if (message) *message = text;
      return true;
    }
  }
  return false;
}
