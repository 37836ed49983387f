// The places of the island: the rows the map and the saved games rely on, and the rules
// of their open flags.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <set>
#include <string>
#include <utility>

#include "world/LocationTable.h"

namespace {

std::set<std::string> OpenPlaces() {
  std::set<std::string> open;
  for (const LocationInfo& place : locationTable)
    if (place.open) open.insert(place.name);
  return open;
}

const LocationInfo* Named(const char* name) {
  for (const LocationInfo& place : locationTable)
    if (std::strcmp(place.name, name) == 0) return &place;
  return nullptr;
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
  std::set<std::pair<int, int>> points;
  int homes = 0, temples = 0, markets = 0, towers = 0, wild = 0;
  std::set<int> towerTiers, wildTiers;
  for (int row = 0; row < kLocationCount; ++row) {
    const LocationInfo& place = locationTable[row];
    EXPECT_EQ(LocationAt(row), &place);
    EXPECT_EQ(LocationRow(&place), row);
    EXPECT_GE(place.kind, 0);
    EXPECT_LT(place.kind, kLocationKinds);
    EXPECT_GE(place.mapX, 0);
    EXPECT_LT(place.mapX, 640);
    EXPECT_GE(place.mapY, 0);
    EXPECT_LT(place.mapY, 480);
    points.insert({place.mapX, place.mapY});
    // Only the wild areas have area files.
    EXPECT_EQ(IsWildArea(place), place.areaFile[0] != '\0') << place.name;
    if (IsWildArea(place)) {
      ++wild;
      wildTiers.insert(place.tier);
      EXPECT_EQ(std::strncmp(place.areaFile, "dat\\", 4), 0) << place.name;
    }
    switch (place.kind) {
      case kLocationHome: ++homes; break;
      case kLocationTemple: ++temples; break;
      case kLocationMarket: ++markets; break;
      case kLocationTower:
        ++towers;
        towerTiers.insert(place.tier);
        break;
      default: break;
    }
    if (!IsWildArea(place) && place.kind != kLocationTower) {
      EXPECT_EQ(place.tier, 0) << place.name;
    }
  }
  EXPECT_EQ(points.size(), static_cast<std::size_t>(kLocationCount)) << "map points are all different";
  EXPECT_EQ(homes, 1);
  EXPECT_EQ(temples, 1);
  EXPECT_EQ(markets, 1);
  EXPECT_EQ(towers, 6);
  EXPECT_EQ(wild, 6);
  EXPECT_EQ(towerTiers, (std::set<int>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(wildTiers, (std::set<int>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(LocationAt(-1), nullptr);
  EXPECT_EQ(LocationAt(kLocationCount), nullptr);
  EXPECT_EQ(LocationRow(nullptr), -1);

  // The first row is the home, where a new game starts; a saved game names the place by
  // its map point.
  EXPECT_STREQ(locationTable[0].name, "Home");
  EXPECT_EQ(locationTable[0].mapX, 320);
  EXPECT_EQ(locationTable[0].mapY, 200);
  // Home and Genwood Forest lie exactly 40 apart, one above the other.
  const LocationInfo* forest = Named("Genwood Forest");
  ASSERT_NE(forest, nullptr);
  EXPECT_EQ(std::hypot(forest->mapX - 320.0, forest->mapY - 200.0), 40.0);
  EXPECT_EQ(LocationRow(forest), 1);
  EXPECT_STREQ(forest->areaFile, "dat\\genwood.dat");
}

TEST_F(LocationTableTest, OpenFlags) {
  ResetLocationsForNewGame();
  const std::set<std::string> newGame{"Home", "Genwood Forest", "Temple of Knowledge", "Market", "Earth Wizard"};
  EXPECT_EQ(OpenPlaces(), newGame);

  // Beating each wizard in turn opens exactly the next wild area and the next tower.
  std::set<std::string> expected = newGame;
  for (int tier = 0; tier < 5; ++tier) {
    OpenNextTier(tier);
    std::set<std::string> opened;
    for (const LocationInfo& place : locationTable)
      if (place.tier == tier + 1) {
        opened.insert(place.name);
        EXPECT_TRUE(IsWildArea(place) || place.kind == kLocationTower) << place.name;
      }
    EXPECT_EQ(opened.size(), 2u) << "tier " << tier + 1;
    expected.insert(opened.begin(), opened.end());
    EXPECT_EQ(OpenPlaces(), expected) << "after beating the wizard of tier " << tier;
  }
  EXPECT_EQ(OpenPlaces().size(), static_cast<std::size_t>(kLocationCount));

  // The last wizard opens nothing more; opening is idempotent.
  OpenNextTier(5);
  OpenNextTier(2);
  EXPECT_EQ(OpenPlaces().size(), static_cast<std::size_t>(kLocationCount));

  // Beating a wizard out of order opens only its own next tier.
  ResetLocationsForNewGame();
  OpenNextTier(2);
  std::set<std::string> third = newGame;
  third.insert(Named("Ice Wizard")->name);
  third.insert(Named("Ice Caves")->name);
  EXPECT_EQ(OpenPlaces(), third);
}

}  // namespace
