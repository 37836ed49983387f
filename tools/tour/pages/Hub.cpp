// Tour pages of the hub: the credits, the options, the world map of a new game and of a
// later one with a beaten wizard, the pause menu, the creature information screen with a
// rename in progress and with SWAP armed, and a tower before and after a won battle.
#include "ShowcaseParty.h"
#include "Tour.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/MainMenuScreen.h"
#include "screens/MessageScreen.h"
#include "screens/OptionsScreen.h"
#include "screens/PauseMenuScreen.h"
#include "screens/TowerScreen.h"
#include "world/WorldMapScreen.h"
#include "shell/Globals.h"

namespace {

WorldMapScreen* NewGameMap() {
  thePlayer.StartNewGame();
  return new WorldMapScreen(1, "MAP_MODE");
}

// A game further on: the Earth and Storm Wizards beaten, a full party.
WorldMapScreen* LaterMap() {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  for (int tier : {0, 1}) {
    thePlayer.wizardDefeated[tier] = 1;
    OpenNextTier(tier);
  }
  return new WorldMapScreen(1, "MAP_MODE");
}

void Hover(TourGame& game, int x, int y) {
  game.backend.MouseMove(x, y);
  game.RunFor(300);
}

TourPage credits("credits", [] { return new MessageScreen(1, "INFO_MODE", creditsText, "dat\\back1.bmp"); },
                 [](TourGame& game) { Hover(game, 300, 382); });
TourPage options("options", [] { return new OptionsScreen(1, "DIFF_MODE"); },
                 [](TourGame& game) { Hover(game, 320, 355); });
TourPage newMap("map-new-game", NewGameMap, [](TourGame& game) { Hover(game, 322, 198); });
TourPage laterMap("map-defeated-tower", LaterMap, [](TourGame& game) {
  game.RunFor(2000);  // the cloud drifts in
  Hover(game, 82, 190);
});
TourPage pause("pause-menu", [] { return new PauseMenuScreen(1, "PAUSE OPTION MODE"); },
               [](TourGame& game) { Hover(game, 320, 325); });
TourPage rename("info-rename", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  return new CreatureInfoScreen(1, "INSPECT_MODE", 0, 1);
}, [](TourGame& game) {
  game.backend.TypeText("\b\b\bsy");
  game.RunFor(500);
});
TourPage swap("info-swap", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  return new CreatureInfoScreen(1, "INSPECT_MODE", 2, 1);
}, [](TourGame& game) {
  game.backend.LeftClick(590, 325);
  game.RunFor(100);
  Hover(game, 480, 420);
});
TourPage towerBefore("tower-before", [] {
  thePlayer.StartNewGame();
  return new TowerScreen(1, "TOWER MODE", 0);
}, [](TourGame& game) { game.RunFor(200); });
TourPage towerAfter("tower-after-win", [] {
  thePlayer.StartNewGame();
  return new TowerScreen(1, "TOWER MODE", 0);
}, [](TourGame& game) {
  // The battle as a won one leaves it: the tower comes back to the top after the combat.
  auto* tower = static_cast<TowerScreen*>(currentScreen);
  tower->fought = 1;
  combatResult = 0;
  tower->Activate();
  game.RunFor(200);
});

}  // namespace
