// Tour pages of the six wild areas' battle backgrounds: each shows a combat waiting for the
// player's choice with all five spells known, so that the two creatures, the panels, the
// spell buttons, the message line and the party strip can all be judged against the
// picture behind them.
#include <cstdlib>

#include "Tour.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "shell/Globals.h"

namespace {

// A party led by one species, against a wild opponent of another, on a background.
Application::FirstScreenFactory BattleOn(const char* background, int species, int opponent) {
  return [=] {
    thePlayer.NewGameReset();
    thePlayer.party[0] = Kindrel::Create(species, 13);
    thePlayer.party[1] = Kindrel::Create(9, 6);
    thePlayer.party[2] = Kindrel::Create(23, 4);
    auto** list = static_cast<SpeciesInfo**>(std::malloc(sizeof(SpeciesInfo*)));
    list[0] = SpeciesAt(opponent);
    list[0]->encounterLevel = 5;
    return new CombatMode(1, "COMBAT MODE", list, 1, background, 1, 0, 0, 0, 0);
  };
}

void ToChoice(TourGame& game) {
  auto* combat = static_cast<CombatMode*>(currentScreen);
  for (int t = 0; t < 60000 && combat->phase != kPhaseWaiting; t += 10) game.RunFor(10);
}

TourPage genwood("battle-genwood", BattleOn("dat\\comback-genwood.bmp", 2, 10), ToChoice);
TourPage beachCave("battle-beachcave", BattleOn("dat\\comback-beachcave.bmp", 3, 11), ToChoice);
TourPage ruins("battle-ruins", BattleOn("dat\\comback-ruins.bmp", 13, 35), ToChoice);
TourPage iceCave("battle-icecave", BattleOn("dat\\comback-icecave.bmp", 7, 21), ToChoice);
TourPage castle("battle-castle", BattleOn("dat\\comback-castle.bmp", 29, 19), ToChoice);
TourPage dismalForest("battle-forest2", BattleOn("dat\\comback-forest2.bmp", 17, 27), ToChoice);

}  // namespace
