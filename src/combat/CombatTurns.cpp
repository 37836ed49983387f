// The rules of an exchange and of a turn: who acts first, what a status does at the start
// of a turn, the hit test, the damage, the status effects and every message in order. The
// order of the random calls is part of the rules.
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "creatures/StatusRules.h"
#include "shell/Random.h"
#include "shell/TextFormat.h"

Kindrel& CombatMode::Actor() const { return PlayerActing() ? *Active() : *opponent; }

Kindrel& CombatMode::Target() const { return PlayerActing() ? *opponent : *Active(); }

std::string CombatMode::NameOf(const Kindrel& creature) const {
  return CombatName(creature, &creature == opponent.get());
}

void CombatMode::StartExchange(bool afterFailedCatch) {
  // The opponent picks one of its known spells at random, whatever the situation.
  opponentSpellSlot = Roll(opponent->spellsKnown);
  choosingReplacement = 0;
  if (afterFailedCatch) {
    actor = 0;  // the catch was the player's turn
  } else {
    const float mine = static_cast<float>(Active()->species->speed) + Active()->status[Speed];
    const float theirs = static_cast<float>(opponent->species->speed) + opponent->status[Speed];
    actor = mine >= theirs ? 1 : 0;  // a tie goes to the player
  }
  StartTurn(true);
}

void CombatMode::StartTurn(bool playCastSound) {
  const Kindrel& caster = Actor();
  currentSpell = &caster.SpellInSlot(PlayerActing() ? playerSpellSlot : opponentSpellSlot);
  Announce();
  const int status = caster.FirstActiveStatus();
  if (status == 0) {
    phase = kPhaseAnnounce;
    SetCountdown(textDelay);
    if (playCastSound) PlaySpellSound(spellCastSounds);
  } else {
    StatusStep(status);
  }
}

void CombatMode::Announce() {
  const std::string caster = NameOf(Actor());
  if (currentSpell->power < 0.0f) {
    message = Format("%s uses %s!", caster.c_str(), currentSpell->name);
  } else if (PlayerActing()) {
    message = Format("%s uses %s on the %s!", caster.c_str(), currentSpell->name, opponent->name);
  } else {
    message = Format("%s uses %s on %s!", caster.c_str(), currentSpell->name, Active()->name);
  }
}

void CombatMode::StatusStep(int status) {
  Kindrel& creature = Actor();
  const std::string name = NameOf(creature);
  phase = kPhaseStatusShown;
  SetCountdown(1);
  switch (status - 1) {
    case Paralyzed:
      Show(Format("%s is paralyzed and can't attack!", name.c_str()), 2 * textDelay);
      break;
    case Poisoned: {
      const int lost = creature.LoseHitPoints(creature.poisonDamage);
      Show(Format("%s loses %d points to poison!", name.c_str(), lost), 2 * textDelay);
      if (!PlayerActing()) MaybeOfferCatch(4 * creature.hitPoints <= creature.MaxHitPoints());
      break;
    }
    case Slow:
      if (actionCounter % 2 == 1) Show(Format("%s is too slow to attack this time!", name.c_str()), 2 * textDelay);
      break;
    default:
      break;  // the modifiers do nothing at the start of a turn
  }
}

void CombatMode::StatusShownStep() {
  ResetOffsets();
  if (Active()->hitPoints <= 0 || opponent->hitPoints <= 0) {
    HandleFaint();
    return;
  }
  // Only the first active status counts: a creature poisoned and slowed takes the poison
  // and then acts, whatever the parity.
  const int status = Actor().FirstActiveStatus();
  if (status - 1 == Paralyzed || (status - 1 == Slow && actionCounter % 2 == 1)) {
    EndTurn(false);
    return;
  }
  Announce();
  phase = kPhaseAnnounce;
  SetCountdown(2 * textDelay / 3);
  PlaySpellSound(spellCastSounds);
}

void CombatMode::HitTest() {
  if (currentSpell->power < 0.0f) {
    hit = 1;
  } else {
    const Kindrel& attacker = Actor();
    const Kindrel& defender = Target();
    int value = static_cast<int>(static_cast<float>(attacker.species->smarts) + attacker.status[Accuracy] -
                                 static_cast<float>(defender.species->smarts)) +
                10;
    if (PlayerActing()) {
      if (thePlayer.difficulty == kEasy) value += 3;
      if (attacker.level == 1) value += 3;
    }
    hit = value > Roll(20) ? 1 : 0;
  }
  SetUpProjectiles();
  phase = kPhaseFlight;
  SetCountdown(textDelay);
  PlaySpellSound(spellFlightSounds);
}

void CombatMode::ImpactStep() {
  phase = kPhaseImpact;
  SetCountdown(textDelay);
  ImpactEffect();
  if (!hit) {
    message = Format("%s misses!", NameOf(Actor()).c_str());
    return;
  }
  PlaySpellSound(spellImpactSounds);
  Kindrel& attacker = Actor();
  Kindrel& target = Target();
  int damage = static_cast<int>(static_cast<float>(static_cast<int>(static_cast<float>(attacker.level) * currentSpell->power)) +
                                attacker.status[Offense] - target.status[Defense]);
  if (damage < 0) damage = 0;
  if (damage > target.hitPoints) damage = target.hitPoints;
  if (currentSpell->power < 1.0f) return;  // no damage: the announcement stays up
  target.LoseHitPoints(damage);
  const std::string name = NameOf(target);
  if (damage == 0) message = Format("%s is not hurt!", name.c_str());
  else if (damage == 1) message = Format("%s loses %d point!", name.c_str(), damage);
  else message = Format("%s loses %d points!", name.c_str(), damage);
  if (PlayerActing()) {
    MaybeOfferCatch(4 * opponent->hitPoints <= opponent->MaxHitPoints() || opponent->hitPoints < 2);
  }
}

void CombatMode::EffectsStep() {
  phase = kPhaseActionDone;
  SetCountdown(1);
  if (!hit) return;
  std::string text;
  // At most one effect is laid; boosts are applied without a word.
  if (ApplySpellEffects(*currentSpell, Actor(), Target(), PlayerActing(), &text)) Show(text, textDelay);
}

void CombatMode::ActionDoneStep() {
  ResetOffsets();
  if (Active()->hitPoints > 0 && opponent->hitPoints > 0) EndTurn(true);
  else HandleFaint();
}

void CombatMode::EndTurn(bool cameThroughPhase5) {
  (PlayerActing() ? playerActed : opponentActed) = 1;
  if (playerActed && opponentActed) {
    phase = kPhaseWaiting;
    Active()->RecoverStatus();
    opponent->RecoverStatus();
    message = "Choose a spell.";
    return;
  }
  actor = PlayerActing() ? 0 : 1;
  SetCountdown(textDelay);
  // A lost turn (shown in phase 7) keeps the next caster's announcement silent.
  StartTurn(cameThroughPhase5);
}

void CombatMode::ResetOffsets() { playerOffsetX = opponentOffsetX = playerOffsetY = opponentOffsetY = 0.0f; }
