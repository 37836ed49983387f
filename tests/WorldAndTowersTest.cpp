// The world map, the creature information screen and the wizard towers, played from a new
// game: which places show and open, the hover and click rules, renaming and swapping, and
// a tower before and after its battle.
#include "combat/CombatMode.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/TowerScreen.h"
#include "world/WorldMapScreen.h"
#include "support/HeadlessGame.h"

namespace {

class WorldTest : public ::testing::Test {
 protected:
  void SetUp() override {
    thePlayer.StartNewGame();
    game = std::make_unique<HeadlessGame>([] { return new WorldMapScreen(1, "MAP_MODE"); });
    map = static_cast<WorldMapScreen*>(currentScreen);
    game->RunFor(100);
  }
  void TearDown() override {
    game.reset();
    ResetGameRecord();
  }
  const char* Top() const { return currentScreen->GetName(); }

  std::unique_ptr<HeadlessGame> game;
  WorldMapScreen* map = nullptr;
};

TEST_F(WorldTest, ANewGameShowsFivePlacesAndTheHoverAndClickRules) {
  // Exactly 20 pixels from both Home and Genwood Forest: the later row is hovered.
  game->backend.MouseMove(320, 220);
  game->RunFor(100);
  ASSERT_NE(map->hovered, nullptr);
  EXPECT_STREQ(map->hovered->name, "Genwood Forest");
  EXPECT_STREQ(WorldMapScreen::PlaceNear(320, 220, false)->name, "Home") << "the first row wins a click";
  EXPECT_EQ(WorldMapScreen::PlaceNear(320, 180, false), &locationTable[0]);
  EXPECT_EQ(WorldMapScreen::PlaceNear(340, 201, false), nullptr) << "20.02 away";
  EXPECT_EQ(WorldMapScreen::PlaceNear(70, 110, false), nullptr) << "a closed tower";
  // Away from every place the name stays.
  game->backend.MouseMove(600, 20);
  game->RunFor(100);
  EXPECT_STREQ(map->hovered->name, "Genwood Forest");

  // A wild area becomes the current place and opens its maze.
  game->Click(320, 242);
  EXPECT_STREQ(thePlayer.currentLocation->name, "Genwood Forest");
  EXPECT_STRNE(Top(), "MAP_MODE");
}

TEST_F(WorldTest, FaintedPartiesStayOutOfTowersAndBeatenTowersStayShut) {
  thePlayer.party[0]->hitPoints = 0;
  game->Click(320, 140);
  EXPECT_STREQ(Top(), "MAP_MODE");
  EXPECT_STREQ(thePlayer.currentLocation->name, "Earth Wizard");
  thePlayer.party[0]->hitPoints = 3;
  thePlayer.wizardDefeated[0] = 1;
  game->Click(320, 140);
  EXPECT_STREQ(Top(), "MAP_MODE") << "a beaten wizard's tower does not open";
  thePlayer.wizardDefeated[0] = 0;
  game->Click(320, 140);
  EXPECT_STREQ(Top(), "TOWER MODE");
}

TEST_F(WorldTest, PartyBoxesOpenTheInformationScreenWhereARenameIsKept) {
  game->Key(platform::VK_UP);  // from "Options" up to the sixth box
  EXPECT_EQ(map->widgets.current->GetId(), 6u);
  game->Click(163, 420);  // slot 1 is empty
  EXPECT_STREQ(Top(), "MAP_MODE");
  game->Click(20, 420);  // Mookie's box
  ASSERT_STREQ(Top(), "INSPECT_MODE");
  auto* info = static_cast<CreatureInfoScreen*>(currentScreen);
  EXPECT_STREQ(info->nameField->Caption(), "Mookie");
  EXPECT_NE(info->widgets.FindById(CreatureInfoScreen::kSwap), nullptr);
  game->Type("\b\b\b\b\b\bPuff");
  EXPECT_STREQ(info->nameField->Caption(), "Puff");
  game->Click(590, 355);  // EXIT
  EXPECT_STREQ(Top(), "MAP_MODE");
  EXPECT_STREQ(thePlayer.party[0]->name, "Puff");
}

TEST_F(WorldTest, SwappingPlacesOnTheInformationScreen) {
  thePlayer.party[2] = Kindrel::Create(0, 3);
  game->backend.LeftClick(20, 420);
  game->RunFor(100);
  auto* info = static_cast<CreatureInfoScreen*>(currentScreen);
  // Typing then clicking the box shown discards the typing.
  game->Type("zz");
  game->Click(20, 420);
  EXPECT_STREQ(info->nameField->Caption(), "Mookie");
  // SWAP, then the empty slot 4: Mookie moves there and slot 0 is empty.
  game->Click(590, 325);
  EXPECT_EQ(info->swapArmed, 1);
  game->Click(440, 420);
  EXPECT_EQ(info->swapArmed, 0);
  EXPECT_EQ(thePlayer.party[0], nullptr);
  ASSERT_NE(thePlayer.party[4], nullptr);
  EXPECT_STREQ(thePlayer.party[4]->name, "Mookie");
  EXPECT_EQ(info->selectedSlot, 4);
  // Typing (into the name field, chosen again), then another box: the typing is stored first.
  game->Click(100, 60);
  game->Type("!");
  game->Click(230, 420);
  EXPECT_STREQ(thePlayer.party[4]->name, "Mookie!");
  EXPECT_STREQ(info->nameField->Caption(), "Bluberd");
}

TEST_F(WorldTest, ATowerBeforeAndAfterItsBattle) {
  game->Click(320, 140);
  ASSERT_STREQ(Top(), "TOWER MODE");
  auto* tower = static_cast<TowerScreen*>(currentScreen);
  EXPECT_STREQ(tower->Speech(), "I am the Wizard of Earth.  You have come to challenge me, for I know much about the "
                                "land of Orlavene.  Very well, let's begin!");
  game->Key(platform::VK_RETURN);  // "Battle!"
  ASSERT_STREQ(Top(), "COMBAT MODE");
  auto* combat = static_cast<CombatMode*>(currentScreen);
  EXPECT_EQ(combat->opponentCount, 2);
  EXPECT_STREQ(combat->opponent->name, "Spiner");
  EXPECT_EQ(combat->catchAllowed, 0);
  // A retreat: the taunt, and nothing opens.
  game->RunFor(3000);
  ASSERT_EQ(combat->phase, kPhaseWaiting);
  game->backend.LeftClick(590, 357);
  game->RunFor(3000);
  ASSERT_STREQ(Top(), "TOWER MODE");
  EXPECT_STREQ(tower->widgets.FindById(0)->Caption(), "Leave Tower");
  EXPECT_STREQ(tower->Speech(), "Hah! Come back when you have tougher Kindrels!");
  EXPECT_EQ(locationTable[10].open, 0);
  EXPECT_EQ(thePlayer.wizardDefeated[0], 0);

  // A won battle, as the combat leaves it: the defeat speech and the next tier open.
  combatResult = 0;
  tower->Activate();
  EXPECT_EQ(thePlayer.wizardDefeated[0], 1);
  EXPECT_EQ(locationTable[2].open, 1);   // Beach Caves
  EXPECT_EQ(locationTable[10].open, 1);  // Storm Wizard
  EXPECT_EQ(locationTable[11].open, 0);
  EXPECT_EQ(std::string(tower->Speech()).rfind("You have defeated my Kindrels.", 0), 0u);
  game->Key(platform::VK_RETURN);  // "Leave Tower"
  EXPECT_STREQ(Top(), "MAP_MODE");

  // The map now shows the beaten tower with "Defeated" over it in red.
  game->RunFor(100);
  int red = 0;
  for (int y = 130; y < 150; ++y)
    for (int x = 260; x < 380; ++x) red += game->backend.LastFrame()[y * 640 + x] == platform::Rgb565(255, 0, 0);
  EXPECT_GT(red, 20);
}

TEST_F(WorldTest, ATowersTeamSharesLevelsBySpecies) {
  // The Ocean Wizard's two Achtwuo fight at the later one's level.
  game->Push(new TowerScreen(1, "TOWER MODE", 2));
  game->Key(platform::VK_RETURN);
  ASSERT_STREQ(Top(), "COMBAT MODE");
  EXPECT_EQ(speciesTable[11].encounterLevel, 8);
}

}  // namespace
