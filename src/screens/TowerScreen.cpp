#include "screens/TowerScreen.h"

#include <cstdlib>

#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "screens/ClickSound.h"
#include "shell/Globals.h"

const int wizardTeamSpecies[kTowerCount][6] = {
    {16, 15, -1, -1, -1, -1}, {6, 22, 31, -1, -1, -1}, {3, 11, 9, 11, -1, -1},
    {7, 8, 9, 8, 25, -1},     {14, 20, 21, 23, 29, 33}, {26, 17, 27, 17, 32, 35},
};
const int wizardTeamLevels[kTowerCount][6] = {
    {1, 1, 0, 0, 0, 0},         {3, 4, 5, 0, 0, 0},         {7, 7, 7, 8, 0, 0},
    {12, 12, 12, 12, 13, 0},    {16, 16, 16, 16, 16, 17},   {20, 21, 22, 23, 24, 30},
};
const char wizardPictures[kTowerCount][64] = {
    "dat\\DIRTWIZARD.bmp", "dat\\STORMWIZARD.bmp", "dat\\OCEANWIZARD.bmp",
    "dat\\ICEWIZARD.bmp",  "dat\\FIREWIZARD.bmp",  "dat\\EARTHWIZARD.bmp",
};

namespace {

const char* const kGreetings[kTowerCount] = {
    "I am the Wizard of Earth.  You have come to challenge me, for I know much about the land of Orlavene.  Very "
    "well, let's begin!",
    "Now you face me, the Storm Wizard.  Beware.  I won't give up what I know easily!",
    "The waves of the Sea fortold your arrival.  Are you powerful enough to defeat me?",
    "I am here.  You have come.  Let us begin.",
    "Why do you have such a burning desire to lose, Mortal?  I will not be defeated!",
    "You've beaten all the other wizards, but they were simply my slaves.  Now you face me, the Vile Wizard, and I "
    "will crush you!",
};
const char* const kDefeatSpeeches[kTowerCount] = {
    "You have defeated my Kindrels.  Know now that more powerful Kindrels can be found in the beach caves on the "
    "Western shores.  To know more, you will have to defeat the Storm Wizard!",
    "I am beaten, but you will not be so lucky against the Ocean Wizard.  Even the Kindrels you'll find in the "
    "ancient ruins of Fangdorf will not help you!",
    "You have won against my Ocean powers, but the Ice Wizard is even stronger.  I will show you the way to the "
    "Caves of Ice, but it will do you no good!",
    "The Ice has fallen, revealing the way to Stronhiem Castle.  Perhaps fire will succeed where ice has failed.",
    "Now that you have beaten me, nothing stands between you and the tyrant, the Vile Wizard!",
    "NOOOO!!!  How can I, the mighty Vile Wizard, lose?!  ARRGGHHH!!",
};
const char* const kTaunt = "Hah! Come back when you have tougher Kindrels!";

int Checked(int tower) { return tower >= 0 && tower < kTowerCount ? tower : 0; }

}  // namespace

TowerScreen::TowerScreen(std::uint32_t id, const char* name, int tower)
    : PlaceScreen(id, name, "dat\\tower-back.bmp", nullptr, 1), towerIndex(Checked(tower)) {
  widgets.Add(new Button(0, "Battle!", 17, 220, 350, 420, 370, 2));
  wizardPicture.LoadPicture(wizardPictures[towerIndex]);
}

TowerScreen::~TowerScreen() = default;

int TowerScreen::Activate() {
  if (fought == 1) {
    widgets.FindById(0)->SetCaption("Leave Tower");
    if (combatResult == 0) {
      OpenNextTier(towerIndex);
      thePlayer.wizardDefeated[towerIndex] = 1;
    }
  }
  return PlaceScreen::Activate();
}

void TowerScreen::Choose() {
  if (!widgets.current) return;
  if (InspectBox(static_cast<int>(widgets.current->GetId()))) return;
  if (fought == 1) {
    Leave();
  } else {
    PlayClick();
    StartBattle();
  }
}

void TowerScreen::StartBattle() {
  int count = 6;
  while (count > 0 && wizardTeamSpecies[towerIndex][count - 1] == -1) --count;
  auto** list = static_cast<SpeciesInfo**>(std::malloc(sizeof(SpeciesInfo*) * (count > 0 ? count : 1)));
  for (int i = 0; i < count; ++i) {
    // A species met twice shares one row: the later position's level stands for both.
    list[i] = SpeciesAt(wizardTeamSpecies[towerIndex][i]);
    list[i]->encounterLevel = wizardTeamLevels[towerIndex][i];
  }
  pendingScreen = new CombatMode(1, "COMBAT MODE", list, count, "dat\\tower-back.bmp", 0, 0, 0, 0, 0);
  state = kStatePush;
  fought = 1;
}

const char* TowerScreen::Speech() const {
  if (fought == 0) return kGreetings[towerIndex];
  return combatResult == 0 ? kDefeatSpeeches[towerIndex] : kTaunt;
}

void TowerScreen::DrawScenery() { wizardPicture.DrawKeyed(100, 170, 0); }

void TowerScreen::DrawPlace() { DrawTextBox(2, Speech(), {220, 80, 540, 330}, nullptr, DT_CENTER | DT_WORDBREAK); }
