// The player's record and the places of the island: the defaults of the program's start,
// the new-game reset, the party's slots, and the rules of the places' open flags.
#include <set>

#include "creatures/ShowcaseParty.h"
#include "support/HeadlessGame.h"
#include "world/LocationTable.h"

namespace {

std::set<std::string> OpenPlaces() {
  std::set<std::string> open;
  for (const LocationInfo& place : locationTable)
    if (place.open) open.insert(place.name);
  return open;
}

// The options and the progress: difficulty, text speed, the player's sex, the first catch,
// and the wizards beaten.
auto Settings(const PlayerRecord& r) {
  return std::tuple(r.difficulty, r.textSpeed, r.playerIsMale, r.firstCatchDone,
                    std::vector<int>(std::begin(r.wizardDefeated), std::end(r.wizardDefeated)));
}

// The location table's open flags are the game's own: every test leaves them as it found
// them.
class PartyRecordTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (int row = 0; row < kLocationCount; ++row) saved[row] = locationTable[row].open;
  }
  void TearDown() override {
    for (int row = 0; row < kLocationCount; ++row) locationTable[row].open = saved[row];
  }
  int saved[kLocationCount] = {};
};

TEST_F(PartyRecordTest, DefaultsAndTheNewGame) {
  PlayerRecord record;
  const std::vector<int> noneBeaten(std::size(record.wizardDefeated), 0);
  EXPECT_EQ(Settings(record), std::tuple(kNormal, 5, 1, 0, noneBeaten));
  EXPECT_EQ(record.PartyCount(), 0);
  EXPECT_TRUE(record.items.IsEmpty());

  // A game in progress with options, items, beaten wizards and a full party.
  record.difficulty = kHard;
  record.textSpeed = 9;
  record.playerIsMale = 0;
  record.firstCatchDone = 1;
  record.wizardDefeated[0] = record.wizardDefeated[3] = 1;
  record.AddItem("Brass Key");
  record.AddItem("Old Map");
  for (int slot = 0; slot < kPartySize; ++slot) record.party[slot] = Kindrel::Create(slot, 3);
  for (LocationInfo& place : locationTable) place.open = 1;

  record.StartNewGame();
  // The options and the items are left alone; everything else starts over: Mookie alone at
  // home, five places open.
  EXPECT_EQ(Settings(record), std::tuple(kHard, 9, 0, 0, noneBeaten));
  EXPECT_EQ(ItemNames(record), (std::vector<std::string>{"Brass Key", "Old Map"}));
  EXPECT_EQ(record.PartyCount(), 1);
  ASSERT_NE(record.party[0], nullptr);
  EXPECT_STREQ(record.party[0]->name, "Mookie");
  EXPECT_EQ(record.party[0]->level, 1);
  EXPECT_EQ(LocationRow(record.currentLocation), 0);
  EXPECT_EQ(OpenPlaces().size(), 5u);

  // The reset alone empties the party and sets nothing else in its place.
  record.NewGameReset();
  EXPECT_EQ(record.PartyCount(), 0);
  EXPECT_EQ(record.FirstFitSlot(), -1);
  EXPECT_FALSE(record.HasFighter());
}

TEST_F(PartyRecordTest, PartySlots) {
  PlayerRecord record;
  EXPECT_EQ(record.FirstEmptySlot(), 0);
  EXPECT_EQ(record.FirstFitSlot(), -1);

  // A gap: slots 0 and 2 hold creatures; a caught creature fills slot 1 first.
  record.party[0] = Kindrel::Create(0, 1);
  record.party[2] = Kindrel::Create(1, 1);
  EXPECT_EQ(record.FirstEmptySlot(), 1);
  EXPECT_EQ(record.AddToParty(Kindrel::Create(2, 4)), 1);
  ASSERT_NE(record.party[1], nullptr);
  EXPECT_EQ(record.party[1]->level, 4);
  EXPECT_EQ(record.FirstEmptySlot(), 3);
  EXPECT_EQ(record.PartyCount(), 3);

  // The first creature able to fight.
  record.party[0]->hitPoints = 0;
  EXPECT_EQ(record.FirstFitSlot(), 1);
  record.party[1]->hitPoints = 0;
  record.party[2]->hitPoints = 0;
  EXPECT_EQ(record.FirstFitSlot(), -1);
  EXPECT_FALSE(record.HasFighter());

  // A full party takes no one more.
  for (int slot = 0; slot < kPartySize; ++slot)
    if (!record.party[slot]) record.party[slot] = Kindrel::Create(slot, 1);
  EXPECT_EQ(record.FirstEmptySlot(), -1);
  EXPECT_EQ(record.AddToParty(Kindrel::Create(9, 1)), -1);
  EXPECT_EQ(record.PartyCount(), kPartySize);
  record.ReleaseParty();
  EXPECT_EQ(record.PartyCount(), 0);
}

TEST_F(PartyRecordTest, ShowcaseParty) {
  PlayerRecord record;
  record.party[0] = Kindrel::Create(7, 1);
  FillShowcaseParty(record);
  ASSERT_EQ(record.PartyCount(), kPartySize);
  std::set<const SpeciesInfo*> species;
  int fainted = 0, red = 0, yellow = 0;
  for (const auto& creature : record.party) {
    species.insert(creature->species);
    if (creature->hitPoints <= 0) {
      ++fainted;
      continue;
    }
    red += creature->HitPointColour() == PackColour(255, 0, 0);
    yellow += creature->HitPointColour() == PackColour(255, 255, 0);
  }
  EXPECT_EQ(species.size(), static_cast<std::size_t>(kPartySize));
  EXPECT_EQ(fainted, 1);
  EXPECT_EQ(red, 1);
  EXPECT_EQ(yellow, 1);
  EXPECT_STREQ(record.party[0]->name, "Mookie");
}

TEST_F(PartyRecordTest, OpenFlags) {
  ResetLocationsForNewGame();
  const std::set<std::string> newGame{"Home", "Genwood Forest", "Temple of Knowledge", "Market", "Earth Wizard"};
  EXPECT_EQ(OpenPlaces(), newGame);

  // Beating each wizard in turn opens exactly the next wild area and the next tower.
  std::set<std::string> expected = newGame;
  for (int tier = 0; tier < 5; ++tier) {
    OpenNextTier(tier);
    int opened = 0;
    for (const LocationInfo& place : locationTable)
      if (place.tier == tier + 1) {
        ++opened;
        expected.insert(place.name);
        EXPECT_TRUE(IsWildArea(place) || place.kind == kLocationTower) << place.name;
      }
    EXPECT_EQ(opened, 2) << "tier " << tier + 1;
    EXPECT_EQ(OpenPlaces(), expected) << "after beating the wizard of tier " << tier;
  }
  EXPECT_EQ(expected.size(), static_cast<std::size_t>(kLocationCount));
  OpenNextTier(5);
  OpenNextTier(2);
  EXPECT_EQ(OpenPlaces(), expected) << "the last wizard opens nothing more, and a wizard beaten again nothing";

  // Beating a wizard out of order opens only its own next tier.
  ResetLocationsForNewGame();
  OpenNextTier(2);
  expected = newGame;
  expected.insert({"Ice Wizard", "Ice Caves"});
  EXPECT_EQ(OpenPlaces(), expected);
}

}  // namespace
