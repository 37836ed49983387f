// The places of the island: rows found both ways, and the rules of their open flags.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "world/LocationTable.h"

namespace {

std::set<std::string> OpenPlaces() {
  std::set<std::string> open;
  for (const LocationInfo& place : locationTable)
    if (place.open) open.insert(place.name);
  return open;
}

class LocationTableTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (int row = 0; row < kLocationCount; ++row) saved[row] = locationTable[row].open;
  }
  void TearDown() override {
    for (int row = 0; row < kLocationCount; ++row) locationTable[row].open = saved[row];
  }
  int saved[kLocationCount] = {};
};

TEST_F(LocationTableTest, RowsOfTheMap) {
  for (int row = 0; row < kLocationCount; ++row) {
    EXPECT_EQ(LocationRow(LocationAt(row)), row);
    // Only the wild areas have area files.
    const LocationInfo& place = locationTable[row];
    EXPECT_EQ(IsWildArea(place), place.areaFile[0] != '\0') << place.name;
  }
  EXPECT_EQ(LocationAt(-1), nullptr);
  EXPECT_EQ(LocationAt(kLocationCount), nullptr);
  EXPECT_EQ(LocationRow(nullptr), -1);
}

TEST_F(LocationTableTest, OpenFlags) {
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
