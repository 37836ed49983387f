#pragma once
// The messages of the status effects and the effects step of a spell that has hit: what
// the combat shows when an effect lands on a creature or is resisted.
#include <string>

#include "creatures/Kindrel.h"
#include "creatures/SpellTable.h"
#include "creatures/StatusEffect.h"

// Fourteen texts in 128-byte slots: the seven "landed" texts (with the remaining turns in
// place of %d where the text has one), then the seven "resisted" texts, in StatusEffect
// order.
extern const char statusEffectTexts[2 * kStatusEffectCount][128];

// How the combat's messages name a creature: "The " and its name for the opponent, the
// bare name for the player's creature.
std::string CombatName(const Kindrel& creature, bool isOpponent);

// The message for an effect that has just landed on the creature (its remaining turns are
// read from its current value) or that it has resisted.
std::string StatusLandedMessage(const Kindrel& target, bool targetIsOpponent, StatusEffect effect);
std::string StatusResistedMessage(const Kindrel& target, bool targetIsOpponent, StatusEffect effect);

// The effects of a spell that has hit, visited in StatusEffect order: a negative entry
// raises the caster's value by its magnitude and the visit goes on; a positive entry is
// tried on the target (one roll of the game's generator) and ends the visit with the
// landed or resisted message. Returns true when such a message was made; boosts alone
// make none.
bool ApplySpellEffects(const SpellInfo& spell, Kindrel& caster, Kindrel& target, bool targetIsOpponent,
                       std::string* message);
