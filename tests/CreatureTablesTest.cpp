// The species and spell tables as the rest of the game relies on them: rows found by their
// index, and the spells a creature casts on itself, which neither fly nor hit.
#include <gtest/gtest.h>

#include "creatures/SpeciesTable.h"
#include "creatures/SpellTable.h"

namespace {

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
