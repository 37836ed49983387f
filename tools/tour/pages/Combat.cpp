// Tour pages of the party strip and of the combat in its telling states: the opening,
// the spell buttons, the Catch button, projectiles of several families in flight, a burst,
// boost sparkles, a status message, a level-up and an opponent sliding away.
#include <cstdlib>
#include <functional>

#include "ShowcaseParty.h"
#include "Tour.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Picture.h"
#include "screens/Frame.h"
#include "screens/PartyBoxes.h"
#include "screens/Tiling.h"
#include "shell/Globals.h"

namespace {

// A screen of nothing but the party strip on the home's floor.
class StripScreen : public GameMode {
 public:
  StripScreen() : GameMode(1, "STRIP") {
    floor.LoadPicture("dat\\home-back.bmp");
    frame.LoadPicture("dat\\outline2.bmp");
  }
  int Activate() override { return Tick(0); }
  int Tick(std::uint32_t) override {
    BeginFrame();
    TilePicture(floor);
    DrawPartyBoxes(frame);
    EndFrame();
    return 1;
  }
  Picture floor, frame;
};

CombatMode* Combat() { return static_cast<CombatMode*>(currentScreen); }

// The player's creature, and a wild opponent of a species at a level.
Application::FirstScreenFactory Battle(int species, int level, int opponent, int opponentLevel, int catchAllowed = 1) {
  return [=] {
    thePlayer.NewGameReset();
    thePlayer.party[0] = Kindrel::Create(species, level);
    thePlayer.party[0]->SetName("Mookie");
    thePlayer.party[1] = Kindrel::Create(9, 6);
    thePlayer.party[2] = Kindrel::Create(23, 4);
    auto** list = static_cast<SpeciesInfo**>(std::malloc(sizeof(SpeciesInfo*) * 2));
    list[0] = SpeciesAt(opponent);
    list[0]->encounterLevel = opponentLevel;
    list[1] = SpeciesAt(26);
    list[1]->encounterLevel = 3;
    return new CombatMode(1, "COMBAT MODE", list, 2, "dat\\comback-scar-for.bmp", catchAllowed, 0, 0, 0, 0);
  };
}

void RunUntil(TourGame& game, const std::function<bool()>& done) {
  for (int t = 0; t < 60000 && currentScreen && !done(); t += 10) game.RunFor(10);
}

void ToChoice(TourGame& game) {
  RunUntil(game, [] { return Combat()->phase == kPhaseWaiting; });
}

// Casts the spell in the slot with a sure hit, and stops a few ticks into the given phase.
void CastInto(TourGame& game, int slot, int phase, int ticks) {
  ToChoice(game);
  Combat()->Active()->status[Accuracy] = 50;
  Combat()->Active()->status[Speed] = 50;
  game.backend.LeftClick(100, 210 + 26 * slot);
  RunUntil(game, [=] { return Combat()->phase == phase; });
  game.RunFor(34 * ticks);
}

TourPage strip("party-strip", [] {
  FillShowcaseParty(thePlayer);
  return new StripScreen();
}, [](TourGame& game) { game.RunFor(100); });

TourPage opening("combat-opening", Battle(4, 5, 0, 4), [](TourGame& game) { game.RunFor(300); });
TourPage buttons("combat-buttons", Battle(4, 5, 0, 4), [](TourGame& game) { ToChoice(game); });
TourPage catchShown("combat-catch", Battle(4, 5, 0, 4), [](TourGame& game) {
  ToChoice(game);
  Combat()->opponent->hitPoints = 3;
  Combat()->opponent->status[Accuracy] = -50;
  CastInto(game, 0, kPhaseFlight, 1);
  RunUntil(game, [] { return Combat()->phase == kPhaseWaiting && Combat()->widgets.FindById(kCatchButton); });
  game.RunFor(100);
});
TourPage zap("combat-flight-zap", Battle(32, 14, 0, 4), [](TourGame& game) { CastInto(game, 0, kPhaseFlight, 8); });
TourPage hypnotize("combat-flight-hypnotize", Battle(4, 5, 0, 4),
                   [](TourGame& game) { CastInto(game, 1, kPhaseFlight, 12); });
TourPage glare("combat-flight-glare", Battle(0, 9, 4, 4), [](TourGame& game) { CastInto(game, 3, kPhaseFlight, 8); });
TourPage web("combat-flight-web", Battle(0, 13, 4, 4), [](TourGame& game) { CastInto(game, 4, kPhaseFlight, 10); });
TourPage burst("combat-impact", Battle(4, 5, 0, 4), [](TourGame& game) { CastInto(game, 0, kPhaseImpact, 2); });
TourPage sparkles("combat-boost", Battle(19, 13, 0, 4), [](TourGame& game) { CastInto(game, 4, kPhaseAnnounce, 10); });
TourPage status("combat-status", Battle(4, 5, 0, 4), [](TourGame& game) {
  ToChoice(game);
  Combat()->opponent->status[Poisoned] = -1.0f;
  Combat()->opponent->poisonDamage = 1;
  Combat()->opponent->status[Speed] = 50;
  game.backend.LeftClick(100, 210);
  RunUntil(game, [] { return Combat()->phase == kPhaseStatusShown; });
  game.RunFor(200);
});
TourPage levelUp("combat-level-up", Battle(4, 1, 0, 1), [](TourGame& game) {
  ToChoice(game);
  Combat()->Active()->experience = 9;
  Combat()->opponent->hitPoints = 1;
  CastInto(game, 0, kPhaseLevelUpShown, 10);
});
TourPage slideOut("combat-slide-out", Battle(4, 1, 0, 1), [](TourGame& game) {
  ToChoice(game);
  Combat()->opponent->hitPoints = 1;
  CastInto(game, 0, kPhaseOpponentLeaving, 9);
});

}  // namespace
