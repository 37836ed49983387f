// Kindrels: creation, growth by experience, hit points and their colour; the spells a
// creature casts on itself, which neither fly nor hit; and the status rules as
// the combat uses them: the resistance roll through the game's generator, landing and
// boosting, recovery, the announced durations, poison by the caster's level, and the
// messages with their prefixes.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include "creatures/Kindrel.h"
#include "creatures/SpeciesTable.h"
#include "creatures/SpellTable.h"
#include "creatures/StatusRules.h"
#include "graphics/Display.h"
#include "shell/Random.h"
#include "support/TestData.h"

namespace {

constexpr int kBluberd = 0;   // resists nothing
constexpr int kFleenu = 4;    // resists Slow often, Poison never
constexpr int kStondre = 35;  // resists everything

// Level, experience and hit points, compared at once.
std::tuple<int, std::uint32_t, int> State(const Kindrel& k) { return {k.level, k.experience, k.hitPoints}; }

TEST(CreatureGrowthTest, CreationFromSpeciesAndLevel) {
  const auto mookie = Kindrel::Create(kFleenu, 1);
  ASSERT_NE(mookie, nullptr);
  EXPECT_EQ(std::tuple(std::string(mookie->name), mookie->species), std::tuple("Fleenu", &speciesTable[kFleenu]));
  EXPECT_EQ(State(*mookie), std::tuple(1, 0u, 3));
  EXPECT_EQ(std::pair(mookie->MaxHitPoints(), mookie->poisonDamage), std::pair(3, 0));
  for (float value : mookie->status) EXPECT_EQ(value, 0.0f);
  EXPECT_EQ((std::vector<std::string>{mookie->SpellInSlot(0).name, mookie->SpellInSlot(1).name}),
            (std::vector<std::string>{"Zap", "Hypnotize"}));
  ASSERT_NE(mookie->picture, nullptr);
  EXPECT_STREQ(mookie->picture->fileName, "dat\\PUFFBALL.bmp");

  // No species beyond the table, no level below 1.
  for (const auto& [species, level] : {std::pair{-1, 1}, {kSpeciesCount, 1}, {kBluberd, 0}})
    EXPECT_EQ(Kindrel::Create(species, level), nullptr) << species << " " << level;

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
  EXPECT_EQ((std::vector<bool>{b->AddExperience(0), b->AddExperience(0)}), (std::vector<bool>{true, false}));
  EXPECT_EQ(State(*b), std::tuple(4, 109u, 8));
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

TEST(CreatureTablesTest, SpellSounds) {
  // The four boost families are cast by the caster on itself: no flight, no impact.
  for (int i = 0; i < kSpellCount; ++i) {
    const bool selfCast = spellTable[i].power < 0.0f;
    EXPECT_EQ(selfCast, SpellFamilyOf(i) >= kFamilyAccuracyBoost) << spellTable[i].name;
    EXPECT_EQ(HasSpellSound(spellFlightSounds[i]), !selfCast) << spellTable[i].name;
    EXPECT_EQ(HasSpellSound(spellImpactSounds[i]), !selfCast) << spellTable[i].name;
  }
  for (const char* none : {"X", "", static_cast<const char*>(nullptr)}) EXPECT_FALSE(HasSpellSound(none));
}

// A seed whose first roll(100) is the value, so that a test knows what the next
// resistance roll gives.
std::uint32_t SeedRolling(int value) {
  for (std::uint32_t seed = 1;; ++seed) {
    SeedRandom(seed);
    if (Roll(100) == value) return seed;
  }
}

TEST(StatusEffectsTest, ResistanceRoll) {
  // The comparison itself: roll x 0.01 in double precision against the stored resistance,
  // equality resisting. 0.1 as stored lies a hair above 0.10 and so resists a roll of 10.
  for (const auto& [resistance, roll, resists] :
       {std::tuple{0.0f, 0, true}, {0.0f, 1, false}, {1.0f, 99, true}, {0.5f, 50, true}, {0.5f, 51, false},
        {0.1f, 10, true}, {0.1f, 11, false}})
    EXPECT_EQ(ResistsRoll(resistance, roll), resists) << resistance << " against " << roll;

  // Through the game's generator: 1.0 resists every roll, so nothing ever lands on the
  // rock, and each attempt takes one number from the generator.
  auto rock = Kindrel::Create(kStondre, 3);
  SeedRandom(12345);
  for (int i = 0; i < 300; ++i) {
    for (int e = 0; e < kStatusEffectCount; ++e) EXPECT_FALSE(rock->LayEffect(static_cast<StatusEffect>(e), 10));
  }
  for (float value : rock->status) EXPECT_EQ(value, 0.0f);
  EXPECT_EQ(rock->poisonDamage, 0);
  SeedRandom(12345);
  for (int i = 0; i < 300 * kStatusEffectCount; ++i) Roll(100);
  const std::uint32_t afterRolls = RandomState();
  SeedRandom(12345);
  for (int i = 0; i < 300 * kStatusEffectCount; ++i) rock->ResistsEffect(Paralyzed);
  EXPECT_EQ(RandomState(), afterRolls);

  // 0.0 still resists a roll of exactly 0, and only that. 0.9 as stored lies a hair below
  // 0.90, so Fleenu (Slow 0.9) resists up to a roll of 89 and no further.
  for (const auto& [species, effect, roll, lands] :
       {std::tuple{kBluberd, Paralyzed, 0, false}, {kBluberd, Paralyzed, 1, true}, {kFleenu, Slow, 89, false},
        {kFleenu, Slow, 90, true}}) {
    auto target = Kindrel::Create(species, 1);
    SeedRandom(SeedRolling(roll));
    EXPECT_EQ(target->LayEffect(effect, 1), lands) << target->name << " rolling " << roll;
    EXPECT_EQ(target->status[effect], lands ? -1.0f : 0.0f);
  }
}

TEST(StatusEffectsTest, LandingRecoveryAndDuration) {
  auto bird = Kindrel::Create(kBluberd, 2);
  SeedRandom(SeedRolling(50));
  auto paralysis = [&] { return std::pair(bird->status[Paralyzed], bird->RemainingTurns(Paralyzed)); };
  ASSERT_TRUE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(bird->FirstActiveStatus(), 1 + Paralyzed);
  EXPECT_EQ(paralysis(), std::pair(-1.0f, 3));

  // Four recovery steps bring it back; the fourth stops at 0.
  bird->RecoverStatus();
  EXPECT_EQ(paralysis(), std::pair(-0.75f, 2));

  // A second landing adds another 1.0 and reports the longer duration.
  SeedRandom(SeedRolling(50));
  ASSERT_TRUE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(paralysis(), std::pair(-1.75f, 6));
  int steps = 0;
  for (; bird->FirstActiveStatus() != 0 && steps < 100; ++steps) bird->RecoverStatus();
  EXPECT_EQ(steps, 7);
  EXPECT_EQ(paralysis(), std::pair(0.0f, -1));

  // A value that would pass 0 stops there.
  bird->status[Slow] = -0.1f;
  bird->RecoverStatus();
  EXPECT_EQ(bird->status[Slow], 0.0f);

  // Boosts do not wear off between exchanges, and they add up.
  bird->BoostStatus(Accuracy, 1.0f);
  bird->BoostStatus(Accuracy, 1.0f);
  for (int i = 0; i < 10; ++i) bird->RecoverStatus();
  EXPECT_EQ(bird->status[Accuracy], 2.0f);
  EXPECT_EQ(bird->FirstActiveStatus(), 0) << "a boost is not an active condition";

  // Only the first value below 0, in effect order, counts.
  bird->status[Speed] = -1.0f;
  EXPECT_EQ(bird->FirstActiveStatus(), 1 + Speed);
  bird->status[Poisoned] = -0.5f;
  EXPECT_EQ(bird->FirstActiveStatus(), 1 + Poisoned);
  bird->status[Paralyzed] = -0.25f;
  EXPECT_EQ(bird->FirstActiveStatus(), 1 + Paralyzed);
}

TEST(StatusEffectsTest, PoisonDamageByCasterLevel) {
  for (const auto& [casterLevel, damage] : {std::pair{1, 1}, {3, 1}, {4, 2}, {7, 2}, {8, 3}, {20, 6}}) {
    auto bird = Kindrel::Create(kBluberd, 10);
    SeedRandom(SeedRolling(40));
    ASSERT_TRUE(bird->LayEffect(Poisoned, casterLevel));
    EXPECT_EQ(bird->poisonDamage, damage) << "caster level " << casterLevel;
    const int before = bird->hitPoints;
    EXPECT_EQ(bird->LoseHitPoints(bird->poisonDamage), damage);
    EXPECT_EQ(bird->hitPoints, before - damage);
  }

  // A later landing replaces the damage; a resisted poison changes nothing.
  auto bird = Kindrel::Create(kBluberd, 10);
  SeedRandom(SeedRolling(40));
  ASSERT_TRUE(bird->LayEffect(Poisoned, 8));
  SeedRandom(SeedRolling(40));
  ASSERT_TRUE(bird->LayEffect(Poisoned, 1));
  EXPECT_EQ(bird->poisonDamage, 1);
  auto sturdy = Kindrel::Create(kStondre, 10);
  sturdy->poisonDamage = 2;
  EXPECT_FALSE(sturdy->LayEffect(Poisoned, 20));
  EXPECT_EQ(sturdy->poisonDamage, 2);
}

TEST(StatusEffectsTest, MessagesAndTheEffectsOfASpell) {
  auto mookie = Kindrel::Create(kFleenu, 1);
  mookie->SetName("Mookie");
  auto bird = Kindrel::Create(kBluberd, 8);

  // Names: "The ..." for the opponent, the bare name for the player's creature.
  EXPECT_EQ(std::tuple(CombatName(*bird, true), CombatName(*mookie, false)), std::tuple("The Bluberd", "Mookie"));

  // Landed with their durations, landed without, and resisted; on either side.
  std::string message;
  for (const auto& [spell, onTheOpponent, roll, expected] :
       {std::tuple{kHypnotize, true, 30, "The Bluberd is paralyzed for 3 more turns!"},
        {kGravityTrap, true, 30, "The Bluberd is paralyzed for 7 more turns!"},
        {kPoisonSting, false, 99, "Mookie is poisoned for 3 more turns!"},
        {kWeary, false, 10, "Mookie resists being slowed down!"},
        {kWeary, false, 95, "Mookie is moving at half-speed for 3 more turns!"},
        {kDuststorm, true, 50, "The Bluberd has less accuracy!"},
        {kGlare, true, 0, "The Bluberd resists being made less defensive!"}}) {
    SeedRandom(SeedRolling(roll));
    Kindrel& caster = onTheOpponent ? *mookie : *bird;
    Kindrel& target = onTheOpponent ? *bird : *mookie;
    EXPECT_TRUE(ApplySpellEffects(spellTable[spell], caster, target, onTheOpponent, &message));
    EXPECT_EQ(message, expected);
  }

  // A name with a '%' in it is shown as it is.
  mookie->SetName("100% Mookie");
  EXPECT_EQ(StatusResistedMessage(*mookie, false, Slow), "100% Mookie resists being slowed down!");

  // A boost raises the caster without a roll and without a message; plain damage lays
  // nothing.
  const std::uint32_t before = RandomState();
  message = "unchanged";
  EXPECT_FALSE(ApplySpellEffects(spellTable[kConcentrate], *mookie, *bird, true, &message));
  EXPECT_FALSE(ApplySpellEffects(spellTable[kConcentrate], *mookie, *bird, true, &message));
  EXPECT_EQ(mookie->status[Accuracy], 2.0f);
  EXPECT_FALSE(ApplySpellEffects(spellTable[kMegaZap], *mookie, *bird, true, &message));
  EXPECT_EQ(message, "unchanged");
  EXPECT_EQ(RandomState(), before);
}

}  // namespace
