// The status rules as the combat uses them: the resistance roll through the game's
// generator, landing and boosting, recovery, the announced durations, poison by the
// caster's level, and the messages with their prefixes.
#include <gtest/gtest.h>

#include <string>

#include "creatures/Kindrel.h"
#include "creatures/StatusRules.h"
#include "shell/Random.h"

namespace {

constexpr int kBluberd = 0;     // resists nothing
constexpr int kFleenu = 4;      // resists Slow often, Poison never
constexpr int kStondre = 35;    // resists everything

// A seed whose first roll(100) is the value, so that a test knows what the next
// resistance roll gives.
std::uint32_t SeedRolling(int value) {
  for (std::uint32_t seed = 1;; ++seed) {
    SeedRandom(seed);
    if (Roll(100) == value) return seed;
  }
}

TEST(StatusEffectsTest, ResistanceRoll) {
  // The comparison itself: roll x 0.01 against the resistance, equality resisting.
  EXPECT_TRUE(ResistsRoll(0.0f, 0));
  EXPECT_FALSE(ResistsRoll(0.0f, 1));
  EXPECT_TRUE(ResistsRoll(1.0f, 99));
  EXPECT_TRUE(ResistsRoll(0.5f, 50));
  EXPECT_FALSE(ResistsRoll(0.5f, 51));

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

  // 0.0 still resists a roll of exactly 0, and only that.
  auto bird = Kindrel::Create(kBluberd, 1);
  SeedRandom(SeedRolling(0));
  EXPECT_FALSE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(bird->status[Paralyzed], 0.0f);
  SeedRandom(SeedRolling(1));
  EXPECT_TRUE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(bird->status[Paralyzed], -1.0f);

  // The roll is compared in double precision with the stored single-precision value:
  // 0.9 as stored lies a hair below 0.90, so Fleenu (Slow 0.9) resists up to a roll of 89
  // and no further, while 0.1 as stored lies a hair above 0.10 and resists a roll of 10.
  auto puff = Kindrel::Create(kFleenu, 1);
  SeedRandom(SeedRolling(89));
  EXPECT_FALSE(puff->LayEffect(Slow, 1));
  EXPECT_EQ(puff->status[Slow], 0.0f);
  SeedRandom(SeedRolling(90));
  EXPECT_TRUE(puff->LayEffect(Slow, 1));
  EXPECT_EQ(puff->status[Slow], -1.0f);
  EXPECT_TRUE(ResistsRoll(0.1f, 10));
  EXPECT_FALSE(ResistsRoll(0.1f, 11));
}

TEST(StatusEffectsTest, LandingRecoveryAndDuration) {
  auto bird = Kindrel::Create(kBluberd, 2);
  SeedRandom(SeedRolling(50));
  ASSERT_TRUE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(bird->FirstActiveStatus(), 1 + Paralyzed);
  EXPECT_EQ(bird->RemainingTurns(Paralyzed), 3);

  // Four recovery steps bring it back; the fourth stops at 0.
  bird->RecoverStatus();
  EXPECT_EQ(bird->status[Paralyzed], -0.75f);
  EXPECT_EQ(bird->RemainingTurns(Paralyzed), 2);

  // A second landing adds another 1.0 and reports the longer duration.
  SeedRandom(SeedRolling(50));
  ASSERT_TRUE(bird->LayEffect(Paralyzed, 1));
  EXPECT_EQ(bird->status[Paralyzed], -1.75f);
  EXPECT_EQ(bird->RemainingTurns(Paralyzed), 6);
  int steps = 0;
  while (bird->FirstActiveStatus() != 0 && steps < 100) {
    bird->RecoverStatus();
    ++steps;
  }
  EXPECT_EQ(steps, 7);
  EXPECT_EQ(bird->status[Paralyzed], 0.0f);
  EXPECT_EQ(bird->RemainingTurns(Paralyzed), -1);

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
  const struct {
    int casterLevel;
    int damage;
  } cases[] = {{1, 1}, {3, 1}, {4, 2}, {7, 2}, {8, 3}, {20, 6}};
  for (const auto& c : cases) {
    auto bird = Kindrel::Create(kBluberd, 10);
    SeedRandom(SeedRolling(40));
    ASSERT_TRUE(bird->LayEffect(Poisoned, c.casterLevel));
    EXPECT_EQ(bird->poisonDamage, c.damage) << "caster level " << c.casterLevel;
    const int before = bird->hitPoints;
    EXPECT_EQ(bird->LoseHitPoints(bird->poisonDamage), c.damage);
    EXPECT_EQ(bird->hitPoints, before - c.damage);
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

  // Prefixes: "The ..." for the opponent, the bare name for the player's creature.
  EXPECT_EQ(StatusTarget(*bird, true), "The Bluberd ");
  EXPECT_EQ(StatusTarget(*mookie, false), "Mookie ");

  // Hypnotize on the opponent: lands, and tells how long.
  std::string message;
  SeedRandom(SeedRolling(30));
  EXPECT_TRUE(ApplySpellEffects(spellTable[kHypnotize], *mookie, *bird, true, &message));
  EXPECT_EQ(message, "The Bluberd is paralyzed for 3 more turns!");
  SeedRandom(SeedRolling(30));
  EXPECT_TRUE(ApplySpellEffects(spellTable[kGravityTrap], *mookie, *bird, true, &message));
  EXPECT_EQ(message, "The Bluberd is paralyzed for 7 more turns!");

  // Poison Sting from the level-8 bird on Mookie (who never resists poison).
  SeedRandom(SeedRolling(99));
  EXPECT_TRUE(ApplySpellEffects(spellTable[kPoisonSting], *bird, *mookie, false, &message));
  EXPECT_EQ(message, "Mookie is poisoned for 3 more turns!");
  EXPECT_EQ(mookie->poisonDamage, 3);

  // Weary on Mookie, resisted on a low roll.
  SeedRandom(SeedRolling(10));
  EXPECT_TRUE(ApplySpellEffects(spellTable[kWeary], *bird, *mookie, false, &message));
  EXPECT_EQ(message, "Mookie resists being slowed down!");
  EXPECT_EQ(mookie->status[Slow], 0.0f);
  SeedRandom(SeedRolling(95));
  EXPECT_TRUE(ApplySpellEffects(spellTable[kWeary], *bird, *mookie, false, &message));
  EXPECT_EQ(message, "Mookie is moving at half-speed for 3 more turns!");

  // The statistics have no duration in their texts.
  SeedRandom(SeedRolling(50));
  ApplySpellEffects(spellTable[kDuststorm], *mookie, *bird, true, &message);
  EXPECT_EQ(message, "The Bluberd has less accuracy!");
  SeedRandom(SeedRolling(0));
  ApplySpellEffects(spellTable[kGlare], *mookie, *bird, true, &message);
  EXPECT_EQ(message, "The Bluberd resists being made less defensive!");

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
