// The rules of an exchange and of a turn: who acts first, what a status does at the start
// of a turn, the hit test, the damage, the status effects and every message in order; then
// catching, fainting, the experience award and the end of the combat. The order of the
// random calls is part of the rules.
#include <algorithm>

#include "audio/SoundEffect.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "creatures/StatusRules.h"
#include "shell/Random.h"
#include "shell/TextFormat.h"

Kindrel& CombatMode::Actor() const { return PlayerActing() ? *Active() : *opponent; }

Kindrel& CombatMode::Target() const { return PlayerActing() ? *opponent : *Active(); }

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
  const bool self = currentSpell->power < 0.0f;
  if (PlayerActing()) {
    message = self ? Format("%s uses %s!", Active()->name, currentSpell->name)
                   : Format("%s uses %s on the %s!", Active()->name, currentSpell->name, opponent->name);
  } else {
    message = self ? Format("The %s uses %s!", opponent->name, currentSpell->name)
                   : Format("The %s uses %s on %s!", opponent->name, currentSpell->name, Active()->name);
  }
}

void CombatMode::StatusStep(int status) {
  Kindrel& creature = Actor();
  const char* const the = PlayerActing() ? "" : "The ";
  phase = kPhaseStatusShown;
  SetCountdown(1);
  switch (status - 1) {
    case Paralyzed:
      Show(Format("%s%s is paralyzed and can't attack!", the, creature.name), 2 * textDelay);
      break;
    case Poisoned: {
      const int lost = creature.LoseHitPoints(creature.poisonDamage);
      Show(Format("%s%s loses %d points to poison!", the, creature.name, lost), 2 * textDelay);
      if (!PlayerActing()) MaybeOfferCatch(4 * creature.hitPoints <= creature.MaxHitPoints());
      break;
    }
    case Slow:
      if (actionCounter % 2 == 1) Show(Format("%s%s is too slow to attack this time!", the, creature.name), 2 * textDelay);
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
  const bool targetIsOpponent = PlayerActing();
  const char* const the = targetIsOpponent ? "The " : "";
  if (!hit) {
    message = PlayerActing() ? Format("%s misses!", Active()->name) : Format("The %s misses!", opponent->name);
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
  if (damage == 0) message = Format("%s%s is not hurt!", the, target.name);
  else if (damage == 1) message = Format("%s%s loses %d point!", the, target.name, damage);
  else message = Format("%s%s loses %d points!", the, target.name, damage);
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

void CombatMode::MaybeOfferCatch(bool weak) {
  if (!weak || !catchAllowed || thePlayer.FirstEmptySlot() < 0) return;
  if (widgets.FindById(kCatchButton)) return;
  widgets.Add(new Button(kCatchButton, "Catch", 64, 540, 285, 640, 320, 2));
}

void CombatMode::AttemptCatch() {
  actionCounter += 1;
  if (thePlayer.firstCatchDone == 0) {
    thePlayer.firstCatchDone = 1;
    caught = 1;  // the first attempt of a game always succeeds
  } else {
    caught = Roll(4) == 0 ? 1 : 0;
  }
  message = Format(caught ? "You caught the %s!" : "You didn't catch the %s!", opponent->name);
  phase = kPhaseCatchShown;
  SetCountdown(textDelay);
}

void CombatMode::CatchShownStep() {
  if (!caught) {
    playerActed = 1;
    opponentActed = 0;
    StartExchange(true);
    return;
  }
  const int slot = thePlayer.FirstEmptySlot();
  if (slot >= 0) {
    if (opponent->picture) opponent->picture->Mirror();  // faces right again
    opponent->experience = LevelStartExperience(opponent->level);
    thePlayer.party[slot] = std::move(opponent);
  }
  NextOpponent();
}

void CombatMode::HandleFaint() {
  if (Active()->hitPoints <= 0) {
    const int fit = thePlayer.FirstFitSlot();
    if (fit >= 0) {
      activeSlot = fit;
      Show(Format("%s is now battling the %s!", Active()->name, opponent->name), 2 * textDelay);
      phase = kPhaseOpening;
      BuildSpellButtons();
    } else {
      Show("You have lost!", textDelay);
      phase = kPhaseEnding;
      combatResult = 1;
    }
    return;
  }
  // The opponent has fainted: only the active creature earns experience.
  const int span = 20 * opponent->level - 10;
  const int award = thePlayer.difficulty == kHard ? span / 3 : span / 2;
  Kindrel& winner = *Active();
  if (winner.AddExperience(static_cast<std::uint32_t>(award))) {
    // A spell learnt here gets its button with the next change of creature or combat: the
    // buttons are built only then.
    Show(Format("%s is now level %d!", winner.name, winner.level), 2 * textDelay);
    phase = kPhaseLevelUpShown;
    PlaySound(0, levelUpSound);
  } else {
    Show(Format("The %s retreats!", opponent->name), textDelay);
    combatResult = 0;
    phase = kPhaseOpponentLeaving;
  }
}

void CombatMode::NextOpponent() {
  if (opponent) opponent->Release();
  opponent.reset();
  opponentIndex += 1;
  if (opponentIndex < opponentCount) {
    CreateOpponent();
    Show(Format("%s is battling a %s!", Active()->name, opponent->name), 3 * textDelay / 2);
    phase = kPhaseOpening;
    RemoveWidget(kCatchButton);
    opponentOffsetX = 0.0f;
  } else {
    Show("You win this battle!", 3 * textDelay / 2);
    phase = kPhaseEnding;
    combatResult = 0;
  }
}

void CombatMode::CreateOpponent() {
  const SpeciesInfo* row = opponentList ? opponentList[opponentIndex] : nullptr;
  // A level below 1 is taken as 1: the creature's growth starts there.
  opponent = row ? Kindrel::Create(row->index, std::max(row->encounterLevel, 1)) : nullptr;
  if (!opponent) opponent = Kindrel::Create(0, 1);  // a row the table does not know
  // It faces the player's creature.
  if (opponent->picture) opponent->picture->Mirror();
}
