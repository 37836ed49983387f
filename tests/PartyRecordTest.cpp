// The player's record: the defaults of the program's start, the new-game reset, the
// party's slots and items.
#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "creatures/PlayerRecord.h"
#include "creatures/ShowcaseParty.h"
#include "world/Item.h"
#include "world/LocationTable.h"

namespace {

int OpenCount() {
  int n = 0;
  for (const LocationInfo& place : locationTable) n += place.open;
  return n;
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
  // Everything else starts over.
  EXPECT_EQ(record.firstCatchDone, 0);
  for (int flag : record.wizardDefeated) EXPECT_EQ(flag, 0);
  EXPECT_EQ(record.PartyCount(), 1);
  ASSERT_NE(record.party[0], nullptr);
  const Kindrel& mookie = *record.party[0];
  EXPECT_STREQ(mookie.name, "Mookie");
  EXPECT_STREQ(mookie.species->name, "Fleenu");
  EXPECT_EQ(mookie.level, 1);
  EXPECT_EQ(mookie.hitPoints, 3);
  EXPECT_EQ(mookie.experience, 0u);
  EXPECT_EQ(mookie.spellsKnown, 2);
  EXPECT_STREQ(mookie.SpellInSlot(0).name, "Zap");
  EXPECT_STREQ(mookie.SpellInSlot(1).name, "Hypnotize");
  ASSERT_NE(record.currentLocation, nullptr);
  EXPECT_STREQ(record.currentLocation->name, "Home");
  EXPECT_EQ(LocationRow(record.currentLocation), 0);

  // Exactly five places are open.
  EXPECT_EQ(OpenCount(), 5);
  for (const char* name : {"Home", "Genwood Forest", "Temple of Knowledge", "Market", "Earth Wizard"}) {
    bool found = false;
    for (const LocationInfo& place : locationTable)
      if (std::strcmp(place.name, name) == 0) {
        found = true;
        EXPECT_EQ(place.open, 1) << name;
      }
    EXPECT_TRUE(found) << name;
  }

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

  // Healing at home: everybody up, status clean.
  record.party[2]->status[Poisoned] = -1.0f;
  record.HealParty();
  EXPECT_EQ(record.party[0]->hitPoints, record.party[0]->MaxHitPoints());
  EXPECT_EQ(record.party[1]->hitPoints, record.party[1]->MaxHitPoints());
  EXPECT_EQ(record.party[2]->FirstActiveStatus(), 0);
  EXPECT_EQ(record.FirstFitSlot(), 0);

  // The end of a combat clears the status values and nothing else.
  record.party[1]->status[Slow] = -0.5f;
  record.party[1]->status[Offense] = 1.0f;
  record.party[1]->hitPoints = 2;
  record.ClearPartyStatus();
  EXPECT_EQ(record.party[1]->status[Slow], 0.0f);
  EXPECT_EQ(record.party[1]->status[Offense], 0.0f);
  EXPECT_EQ(record.party[1]->hitPoints, 2);

  // A full party takes no one more.
  for (int slot = 0; slot < kPartySize; ++slot)
    if (!record.party[slot]) record.party[slot] = Kindrel::Create(slot, 1);
  EXPECT_EQ(record.FirstEmptySlot(), -1);
  EXPECT_EQ(record.AddToParty(Kindrel::Create(9, 1)), -1);
  EXPECT_EQ(record.PartyCount(), kPartySize);
  record.ReleaseParty();
  EXPECT_EQ(record.PartyCount(), 0);
}

TEST_F(PartyRecordTest, TheGamesOneRecord) {
  // The one record of the run starts with the defaults and an empty party.
  EXPECT_EQ(thePlayer.PartyCount(), 0);
  EXPECT_EQ(thePlayer.textSpeed, 5);
  thePlayer.StartNewGame();
  EXPECT_EQ(thePlayer.PartyCount(), 1);
  thePlayer.ReleaseParty();
  thePlayer.currentLocation = nullptr;
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

TEST_F(PartyRecordTest, Items) {
  Item key("Key of Fire");
  EXPECT_EQ(key.GetId(), 1u);
  EXPECT_STREQ(key.GetName(), "Key of Fire");
  PlayerRecord record;
  record.AddItem("Flute of Wind");
  record.AddItem("flute");
  ASSERT_NE(record.items.First(), nullptr);
  EXPECT_STREQ(record.items.First()->GetName(), "Flute of Wind");
  EXPECT_STREQ(record.items.Last()->GetName(), "flute");
}

}  // namespace
