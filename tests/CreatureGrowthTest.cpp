// A Kindrel's creation, its growth by experience, its hit points and their colour; and the
// species and spell tables as the rest of the game relies on them: rows found by their
// index, and the spells a creature casts on itself, which neither fly nor hit.
#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include "creatures/Kindrel.h"
#include "creatures/SpeciesTable.h"
#include "creatures/SpellTable.h"
#include "graphics/Display.h"
#include "support/TestData.h"

namespace {

constexpr int kBluberd = 0;
constexpr int kFleenu = 4;
constexpr int kGradon = 32;

// Level, experience and hit points, compared at once.
std::tuple<int, std::uint32_t, int> State(const Kindrel& k) { return {k.level, k.experience, k.hitPoints}; }

TEST(CreatureGrowthTest, CreationFromSpeciesAndLevel) {
  const auto mookie = Kindrel::Create(kFleenu, 1);
  ASSERT_NE(mookie, nullptr);
  EXPECT_STREQ(mookie->name, "Fleenu");
  EXPECT_EQ(mookie->species, &speciesTable[kFleenu]);
  EXPECT_EQ(State(*mookie), std::tuple(1, 0u, 3));
  EXPECT_EQ(mookie->MaxHitPoints(), 3);
  EXPECT_EQ(mookie->poisonDamage, 0);
  for (float value : mookie->status) EXPECT_EQ(value, 0.0f);
  EXPECT_STREQ(mookie->SpellInSlot(0).name, "Zap");
  EXPECT_STREQ(mookie->SpellInSlot(1).name, "Hypnotize");
  ASSERT_NE(mookie->picture, nullptr);
  EXPECT_STREQ(mookie->picture->fileName, "dat\\PUFFBALL.bmp");

  // Hit points grow with the level.
  const auto dragon = Kindrel::Create(kGradon, 7);
  ASSERT_NE(dragon, nullptr);
  EXPECT_EQ(dragon->hitPoints, 70);
  EXPECT_EQ(dragon->MaxHitPoints(), 70);

  // No species beyond the table, no level below 1.
  EXPECT_EQ(Kindrel::Create(-1, 1), nullptr);
  EXPECT_EQ(Kindrel::Create(kSpeciesCount, 1), nullptr);
  EXPECT_EQ(Kindrel::Create(kBluberd, 0), nullptr);

  // Names are cut to 63 characters.
  mookie->SetName(std::string(100, 'k').c_str());
  EXPECT_EQ(std::strlen(mookie->name), 63u);
}

TEST(CreatureGrowthTest, SpellsKnownByLevel) {
  for (const auto& [level, known] : {std::pair{1, 2}, {4, 2}, {5, 3}, {8, 3}, {9, 4}, {12, 4}, {13, 5}, {40, 5}}) {
    EXPECT_EQ(SpellsKnownAtLevel(level), known) << "level " << level;
    EXPECT_EQ(Kindrel::Create(kBluberd, level)->spellsKnown, known) << "level " << level;
  }
}

TEST(CreatureGrowthTest, ExperienceAndLevels) {
  // Thresholds: 10, 40, 90, 160, 250 for levels 1 to 5; a level begins where the one
  // below it ends.
  for (const auto& [level, next, start] : {std::tuple{1, 10u, 0u}, {2, 40u, 10u}, {5, 250u, 160u}, {6, 360u, 250u}}) {
    EXPECT_EQ(NextLevelExperience(level), next) << level;
    EXPECT_EQ(LevelStartExperience(level), start) << level;
  }

  // 9 + 1 reaches level 2 at full health; short of the next threshold only the experience
  // changes.
  auto a = Kindrel::Create(kBluberd, 1);
  a->experience = 9;
  a->hitPoints = 1;
  EXPECT_TRUE(a->AddExperience(1));
  EXPECT_EQ(State(*a), std::tuple(2, 10u, 4));
  EXPECT_EQ(a->NextLevelExperience(), 40u);
  a->hitPoints = 2;
  EXPECT_FALSE(a->AddExperience(29));
  EXPECT_EQ(State(*a), std::tuple(2, 39u, 2));

  // 9 + 100: one level only, then each award of any size brings the next while the
  // experience is past its threshold (109 is past 40 and 90, not 160).
  auto b = Kindrel::Create(kBluberd, 1);
  b->experience = 9;
  EXPECT_TRUE(b->AddExperience(100));
  EXPECT_EQ(b->level, 2);
  b->hitPoints = 1;
  EXPECT_TRUE(b->AddExperience(0));
  EXPECT_EQ(State(*b), std::tuple(3, 109u, 6));
  EXPECT_TRUE(b->AddExperience(0));
  EXPECT_FALSE(b->AddExperience(0));
  EXPECT_EQ(State(*b), std::tuple(4, 109u, 8));

  // A new level may teach a new spell.
  auto c = Kindrel::Create(kBluberd, 4);
  c->experience = LevelStartExperience(5) - 1;
  EXPECT_TRUE(c->AddExperience(1));
  EXPECT_EQ(c->spellsKnown, 3);
}

TEST(CreatureGrowthTest, HitPointsAndTheirColour) {
  // A level-4 Bluberd has 8 hit points at most.
  auto creature = Kindrel::Create(kBluberd, 4);
  ASSERT_EQ(creature->MaxHitPoints(), 8);
  const std::uint32_t red = PackColour(255, 0, 0), yellow = PackColour(255, 255, 0), green = PackColour(0, 255, 0);
  for (const auto& [hitPoints, colour] :
       {std::pair{0, red}, {1, red}, {2, red}, {3, yellow}, {4, yellow}, {5, green}, {8, green}}) {
    creature->hitPoints = hitPoints;
    EXPECT_EQ(creature->HitPointColour(), colour) << hitPoints << " of 8";
  }

  // Damage never takes more than the creature has.
  creature->hitPoints = 2;
  EXPECT_EQ(creature->LoseHitPoints(5), 2);
  EXPECT_EQ(creature->hitPoints, 0);
  EXPECT_TRUE(creature->IsFainted());
  EXPECT_EQ(creature->LoseHitPoints(3), 0);
  EXPECT_EQ(creature->hitPoints, 0);
  creature->hitPoints = 6;
  EXPECT_EQ(creature->LoseHitPoints(-4), 0);
  EXPECT_EQ(creature->LoseHitPoints(1), 1);
  EXPECT_EQ(creature->hitPoints, 5);
}

TEST(CreatureGrowthTest, PictureIsTheCreaturesOwn) {
  // A species picture in a data folder of our own: two creatures get separate pictures,
  // and releasing frees it.
  const TempFolder folder("kindrel", TempFolder::DataRoot);
  std::filesystem::copy_file(TestData("kindrel.bmp"), folder / "dat" / "PUFFBALL.bmp");
  {
    auto first = Kindrel::Create(kFleenu, 1);
    auto second = Kindrel::Create(kFleenu, 1);
    ASSERT_EQ(first->picture->Width(), 104);
    ASSERT_EQ(second->picture->Width(), 104);
    EXPECT_NE(first->picture->surface.get(), second->picture->surface.get());
    const std::uint16_t corner = second->picture->surface->At(0, 0);
    first->picture->surface->Pixels()[0] = 0x1234;
    first->picture->Mirror();
    EXPECT_EQ(second->picture->surface->At(0, 0), corner) << "mirroring one leaves the other alone";
    first->Release();
    EXPECT_EQ(first->picture, nullptr);
  }
  // A missing picture gives an empty one.
  auto missing = Kindrel::Create(kBluberd, 1);
  EXPECT_EQ(missing->picture->Width(), 0);
  EXPECT_EQ(missing->hitPoints, 2);
}

TEST(CreatureTablesTest, RowsAreFoundByTheirIndex) {
  for (int i = 0; i < kSpeciesCount; ++i) EXPECT_EQ(SpeciesAt(i), &speciesTable[i]);
  for (int i = 0; i < kSpellCount; ++i) EXPECT_EQ(SpellAt(i), &spellTable[i]);
  for (int outside : {-1, 36}) {
    EXPECT_EQ(SpeciesAt(outside), nullptr);
    EXPECT_EQ(SpellAt(outside), nullptr);
  }
}

TEST(CreatureTablesTest, SpellSounds) {
  // The four boost families are cast by the caster on itself: no flight, no impact.
  for (int i = 0; i < kSpellCount; ++i) {
    const bool selfCast = spellTable[i].power < 0.0f;
    EXPECT_EQ(selfCast, SpellFamilyOf(i) >= kFamilyAccuracyBoost) << spellTable[i].name;
    EXPECT_EQ(HasSpellSound(spellFlightSounds[i]), !selfCast) << spellTable[i].name;
    EXPECT_EQ(HasSpellSound(spellImpactSounds[i]), !selfCast) << spellTable[i].name;
  }
  EXPECT_FALSE(HasSpellSound("X"));
  EXPECT_FALSE(HasSpellSound(""));
  EXPECT_FALSE(HasSpellSound(nullptr));
}

}  // namespace
