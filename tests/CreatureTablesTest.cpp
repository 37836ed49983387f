// The species and spell tables: their rows as the rest of the game relies on them,
// checked through what a creature or a spell does rather than copied back.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "creatures/Kindrel.h"
#include "creatures/SpeciesTable.h"
#include "creatures/SpellTable.h"

namespace {

int SpeciesNamed(const char* name) {
  for (int i = 0; i < kSpeciesCount; ++i)
    if (std::strcmp(speciesTable[i].name, name) == 0) return i;
  return -1;
}

TEST(CreatureTablesTest, SpeciesRowsAreWholeAndInOrder) {
  std::set<std::string> names;
  for (int i = 0; i < kSpeciesCount; ++i) {
    const SpeciesInfo& row = speciesTable[i];
    EXPECT_EQ(row.index, i);
    EXPECT_EQ(SpeciesAt(i), &row);
    EXPECT_EQ(row.encounterLevel, 0) << row.name;
    EXPECT_GT(row.toughness, 0) << row.name;
    EXPECT_EQ(std::strncmp(row.pictureFile, "dat\\", 4), 0) << row.name;
    EXPECT_NE(std::strstr(row.pictureFile, ".bmp"), nullptr) << row.name;
    for (float r : row.resistance) {
      EXPECT_GE(r, 0.0f) << row.name;
      EXPECT_LE(r, 1.0f) << row.name;
    }
    for (int spell : row.spells) EXPECT_NE(SpellAt(spell), nullptr) << row.name;
    names.insert(row.name);
  }
  EXPECT_EQ(names.size(), static_cast<std::size_t>(kSpeciesCount)) << "every species has its own name";
  EXPECT_EQ(SpeciesAt(-1), nullptr);
  EXPECT_EQ(SpeciesAt(kSpeciesCount), nullptr);

  // The starting creature's species is the fifth row; the strongest rock comes last.
  EXPECT_EQ(SpeciesNamed("Bluberd"), 0);
  EXPECT_EQ(SpeciesNamed("Fleenu"), 4);
  EXPECT_EQ(SpeciesNamed("Gradon"), 32);
  EXPECT_EQ(SpeciesNamed("Stondre"), 35);
  EXPECT_STREQ(speciesTable[4].pictureFile, "dat\\PUFFBALL.bmp");
}

TEST(CreatureTablesTest, SpeciesFacts) {
  // Level-1 hit points come from the toughness.
  struct {
    const char* species;
    int hitPoints;
  } const levelOne[] = {{"Bluberd", 2}, {"Fleenu", 3}, {"Luleni", 4}, {"Gemagem", 8}, {"Gradon", 10}, {"Stondre", 10}};
  for (const auto& c : levelOne) {
    const auto creature = Kindrel::Create(SpeciesNamed(c.species), 1);
    ASSERT_NE(creature, nullptr) << c.species;
    EXPECT_EQ(creature->hitPoints, c.hitPoints) << c.species;
  }

  // The rock resists everything; the first bird nothing; the puffball is hard to slow.
  for (float r : speciesTable[SpeciesNamed("Stondre")].resistance) EXPECT_EQ(r, 1.0f);
  for (float r : speciesTable[SpeciesNamed("Bluberd")].resistance) EXPECT_EQ(r, 0.0f);
  EXPECT_FLOAT_EQ(speciesTable[SpeciesNamed("Fleenu")].resistance[Slow], 0.9f);
  EXPECT_FLOAT_EQ(speciesTable[SpeciesNamed("Fleenu")].resistance[Poisoned], 0.0f);

  // The starting creature learns Zap, then Hypnotize; some species learn a spell twice.
  const SpeciesInfo& fleenu = speciesTable[SpeciesNamed("Fleenu")];
  EXPECT_STREQ(spellTable[fleenu.spells[0]].name, "Zap");
  EXPECT_STREQ(spellTable[fleenu.spells[1]].name, "Hypnotize");
  for (const char* twice : {"Ladybeetle", "Windrider", "Flametail"}) {
    const SpeciesInfo& row = speciesTable[SpeciesNamed(twice)];
    std::set<int> distinct(std::begin(row.spells), std::end(row.spells));
    EXPECT_EQ(distinct.size(), 4u) << twice;
  }
  // Everyone else learns five different spells.
  int repeating = 0;
  for (const SpeciesInfo& row : speciesTable) {
    std::set<int> distinct(std::begin(row.spells), std::end(row.spells));
    repeating += distinct.size() != 5;
  }
  EXPECT_EQ(repeating, 3);

  // The scratch field is the only one that may be written.
  speciesTable[7].encounterLevel = 12;
  EXPECT_EQ(SpeciesAt(7)->encounterLevel, 12);
  speciesTable[7].encounterLevel = 0;
}

TEST(CreatureTablesTest, SpellKindsFollowTierAndFamily) {
  std::set<std::string> names;
  for (int i = 0; i < kSpellCount; ++i) {
    const SpellInfo& spell = spellTable[i];
    EXPECT_EQ(spell.index, i);
    EXPECT_EQ(SpellAt(i), &spell);
    EXPECT_EQ(SpellTier(i) * kSpellFamilies + SpellFamilyOf(i), i);
    names.insert(spell.name);

    const int family = SpellFamilyOf(i);
    const int tier = SpellTier(i);
    int laid = 0, boosted = 0;
    for (int e = 0; e < kStatusEffectCount; ++e) {
      if (spell.effect[e] > 0.0f) {
        ++laid;
        EXPECT_FLOAT_EQ(spell.effect[e], 0.5f) << spell.name;
      }
      if (spell.effect[e] < 0.0f) {
        ++boosted;
        EXPECT_FLOAT_EQ(spell.effect[e], -1.0f) << spell.name;
      }
    }
    if (family >= kFamilyAccuracyBoost) {
      // Boosts: cast on the caster itself, stronger with each tier, one statistic raised.
      EXPECT_EQ(spell.power, -static_cast<float>(tier + 1)) << spell.name;
      EXPECT_EQ(boosted, 1) << spell.name;
      EXPECT_EQ(laid, 0) << spell.name;
      const StatusEffect raised[] = {Accuracy, Defense, Offense, Speed};
      EXPECT_LT(spell.effect[raised[family - kFamilyAccuracyBoost]], 0.0f) << spell.name;
    } else {
      EXPECT_GE(spell.power, 0.0f) << spell.name;
      EXPECT_EQ(boosted, 0) << spell.name;
      EXPECT_EQ(laid, family == kFamilyDamage ? 0 : 1) << spell.name;
    }
  }
  EXPECT_EQ(names.size(), static_cast<std::size_t>(kSpellCount));
  EXPECT_EQ(SpellAt(-1), nullptr);
  EXPECT_EQ(SpellAt(kSpellCount), nullptr);

  // What each family lays.
  EXPECT_GT(spellTable[kPoisonSting].effect[Poisoned], 0.0f);
  EXPECT_GT(spellTable[kGravityTrap].effect[Paralyzed], 0.0f);
  EXPECT_GT(spellTable[kWhirlwind].effect[Accuracy], 0.0f);
  EXPECT_GT(spellTable[kGrandSlam].effect[Offense], 0.0f);
  EXPECT_GT(spellTable[kDreary].effect[Slow], 0.0f);
  EXPECT_GT(spellTable[kAcidSpray].effect[Defense], 0.0f);
  EXPECT_GT(spellTable[kWeb].effect[Speed], 0.0f);

  // Damage grows with the tier: Zap, Power Zap, Mega Zap.
  EXPECT_STREQ(spellTable[kZap].name, "Zap");
  EXPECT_LT(spellTable[kZap].power, spellTable[kPowerZap].power);
  EXPECT_LT(spellTable[kPowerZap].power, spellTable[kMegaZap].power);
  // Pure status spells of the first tier do no damage; those of later tiers do.
  EXPECT_EQ(spellTable[kHypnotize].power, 0.0f);
  EXPECT_GE(spellTable[kPetrify].power, 1.0f);
}

TEST(CreatureTablesTest, SpellSounds) {
  for (int i = 0; i < kSpellCount; ++i) {
    const bool selfCast = spellTable[i].power < 0.0f;
    const int family = SpellFamilyOf(i);
    // Every spell sounds when it is announced but the three dust storms.
    EXPECT_EQ(HasSpellSound(spellCastSounds[i]), family != kFamilyAccuracyDown) << spellTable[i].name;
    // A spell cast on the caster itself neither flies nor hits.
    EXPECT_EQ(HasSpellSound(spellFlightSounds[i]), !selfCast) << spellTable[i].name;
    EXPECT_EQ(HasSpellSound(spellImpactSounds[i]), !selfCast) << spellTable[i].name;
    for (const char* name : {spellCastSounds[i], spellFlightSounds[i], spellImpactSounds[i]}) {
      if (HasSpellSound(name)) {
        EXPECT_EQ(std::strncmp(name, "dat\\spell\\", 10), 0) << name;
      } else {
        EXPECT_EQ(name[0], 'X');
      }
    }
  }
  EXPECT_STREQ(spellCastSounds[kConcentrate], "dat\\spell\\powerup.wav");
  EXPECT_STREQ(spellFlightSounds[kMegaZap], "dat\\spell\\phzz.wav");
  EXPECT_FALSE(HasSpellSound("X"));
  EXPECT_TRUE(HasSpellSound("dat\\spell\\damage.wav"));
}

}  // namespace
