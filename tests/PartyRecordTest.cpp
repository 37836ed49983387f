// The player's record: the defaults of the program's start, the new-game reset, and the
// party's slots.
#include <gtest/gtest.h>

#include <set>

#include "ShowcaseParty.h"
#include "creatures/PlayerRecord.h"
#include "world/LocationTable.h"

namespace {

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
  EXPECT_EQ(record.difficulty, kNormal);
  EXPECT_EQ(record.textSpeed, 5);
  EXPECT_EQ(record.playerIsMale, 1);
  EXPECT_EQ(record.firstCatchDone, 0);
  EXPECT_EQ(record.PartyCount(), 0);
  EXPECT_TRUE(record.items.IsEmpty());
  for (int flag : record.wizardDefeated) EXPECT_EQ(flag, 0);

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
  // The options and the items are left alone.
  EXPECT_EQ(record.difficulty, kHard);
  EXPECT_EQ(record.textSpeed, 9);
  EXPECT_EQ(record.playerIsMale, 0);
  ASSERT_FALSE(record.items.IsEmpty());
  EXPECT_STREQ(record.items.First()->GetName(), "Brass Key");
  EXPECT_STREQ(record.items.Next()->GetName(), "Old Map");
  EXPECT_EQ(record.items.Next(), nullptr);
  // Everything else starts over: Mookie alone at home, five places open.
  EXPECT_EQ(record.firstCatchDone, 0);
  for (int flag : record.wizardDefeated) EXPECT_EQ(flag, 0);
  EXPECT_EQ(record.PartyCount(), 1);
  ASSERT_NE(record.party[0], nullptr);
  EXPECT_STREQ(record.party[0]->name, "Mookie");
  EXPECT_EQ(record.party[0]->level, 1);
  EXPECT_EQ(LocationRow(record.currentLocation), 0);
  int open = 0;
  for (const LocationInfo& place : locationTable) open += place.open;
  EXPECT_EQ(open, 5);

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

}  // namespace
