// Catching, fainting, the experience award, the opponent's retreat and the next opponent:
// how a combat goes on after a creature is beaten or caught, and how it ends.
#include <algorithm>

#include "audio/SoundEffect.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "shell/Random.h"
#include "shell/TextFormat.h"

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
  if (opponent->picture) opponent->picture->Mirror();  // faces right again
  opponent->experience = LevelStartExperience(opponent->level);
  thePlayer.AddToParty(std::move(opponent));
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
    OpponentRetreats();
  }
}

void CombatMode::OpponentRetreats() {
  const std::string name = opponent ? NameOf(*opponent) : std::string();
  Show(Format("%s retreats!", name.c_str()), textDelay);
  combatResult = 0;
  phase = kPhaseOpponentLeaving;
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
