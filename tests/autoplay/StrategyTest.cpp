// The autoplayer's judgement on its own: the spell it casts, the odds it reads from the
// rules, who it sends against a wild Kindrel, whom the market takes, the areas it trains
// in, and its way through small mazes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Strategy.h"
#include "creatures/PlayerRecord.h"

namespace autoplay {
namespace {

constexpr int kBluberd = 0, kFleenu = 4, kWindrider = 12, kTexallo = 13, kRobilar = 14, kSpiner = 16;

Fighter Of(int species, int level) { return Fighter::Fresh(speciesTable[species], level); }

TEST(StrategyTest, TheBestSpellIsTheStrongestKnownDamagingOne) {
  // Fleenu: Zap, Hypnotize, Power Zap, Glare, Web.
  EXPECT_EQ(BestSpellSlot(speciesTable[kFleenu], 1, 2), 0);   // Hypnotize does no damage
  EXPECT_EQ(BestSpellSlot(speciesTable[kFleenu], 5, 3), 2);   // Power Zap, once known
  // Windrider: Power Zap, Duststorm, Mega Zap, ...
  EXPECT_EQ(BestSpellSlot(speciesTable[kWindrider], 4, 2), 0);
  EXPECT_EQ(BestSpellSlot(speciesTable[kWindrider], 9, 4), 2);
  // Texallo knows Petrify (1x, paralyzes) only at 13, by when Mega Zap (3x) is better.
  EXPECT_EQ(BestSpellSlot(speciesTable[kTexallo], 13, 5), 2);
  // Robilar: Power Zap and Power Slam hit alike; Power Slam also lays an effect.
  EXPECT_EQ(BestSpellSlot(speciesTable[kRobilar], 9, 4), 2);
  EXPECT_EQ((std::vector{SpellDamage(spellTable[kPowerZap], 7), SpellDamage(spellTable[kHypnotize], 7),
                         SpellDamage(spellTable[kRage], 7)}),
            (std::vector{14, 0, 0}));
}

TEST(StrategyTest, HitChancesFollowTheHitValue) {
  // Mookie (level 1, smarts 4) against a Bluberd (smarts 3): 4 - 3 + 10 + 3 = 14 of 20.
  EXPECT_FLOAT_EQ(HitChance(Of(kFleenu, 1), Of(kBluberd, 2), true, kNormal), 0.7f);
  EXPECT_FLOAT_EQ(HitChance(Of(kFleenu, 1), Of(kBluberd, 2), true, kEasy), 0.85f);
  EXPECT_FLOAT_EQ(HitChance(Of(kFleenu, 2), Of(kBluberd, 2), true, kNormal), 0.55f);
  // The Bluberd's answer, with no bonus: 3 - 4 + 10 = 9.
  EXPECT_FLOAT_EQ(HitChance(Of(kBluberd, 2), Of(kFleenu, 1), false, kEasy), 0.45f);
  // An opponent casts each known spell equally often: the Bluberd's Weary does nothing.
  EXPECT_FLOAT_EQ(OpponentDamagePerTurn(Of(kBluberd, 2), Of(kFleenu, 1)), 0.5f * 2.0f * 0.45f);
}

TEST(StrategyTest, TheLowestCreatureThatWinsComfortablyFights) {
  const Fighter foe = Of(kBluberd, 2);
  std::vector<std::optional<Fighter>> party(6);
  party[0] = Of(kSpiner, 6);
  party[2] = Of(kFleenu, 3);
  party[4] = Of(kFleenu, 1);
  EXPECT_GE(DuelRatio(*party[2], foe, kNormal), 2.0f);
  EXPECT_LT(DuelRatio(*party[4], foe, kNormal), 2.0f);
  EXPECT_EQ(ChooseFighter(party, foe, kNormal), 2);
  // Together they wear a foe down, one after the other; the fainted do not count.
  const Fighter strong = Of(kSpiner, 4);
  const float first = DuelRatio(*party[0], strong, kNormal), second = DuelRatio(*party[2], strong, kNormal),
              third = DuelRatio(*party[4], strong, kNormal);
  EXPECT_FLOAT_EQ(PartyRatio(party, strong, kNormal), first + second + third);
  party[4]->hitPoints = 0;
  EXPECT_FLOAT_EQ(PartyRatio(party, strong, kNormal), first + second);
  party[4]->hitPoints = party[4]->MaxHitPoints();
  // A fainted creature never fights; with nobody comfortable, the strongest does.
  party[2]->hitPoints = 0;
  party[0]->hitPoints = 1;
  EXPECT_EQ(ChooseFighter(party, Of(kSpiner, 9), kNormal), 0);
  party[0]->hitPoints = 0;
  party[4]->hitPoints = 0;
  EXPECT_EQ(ChooseFighter(party, foe, kNormal), -1);
}

TEST(StrategyTest, AStrongerPartyOutweighsATeam) {
  const std::vector<Fighter> team = {Of(kSpiner, 1), Of(15, 1)};
  const std::vector<Fighter> weak = {Of(kFleenu, 1)};
  const std::vector<Fighter> strong = {Of(kFleenu, 6), Of(kSpiner, 5), Of(kRobilar, 4)};
  EXPECT_LT(PartyStrength(weak, team, kNormal), TeamStrength(team, weak));
  EXPECT_GT(PartyStrength(strong, team, kNormal), 2.0f * TeamStrength(team, strong));
}

TEST(StrategyTest, TheMarketTakesTheWeakestButNeverTheLastOne) {
  std::vector<std::optional<Fighter>> party(6);
  party[1] = Of(kFleenu, 4);
  EXPECT_EQ(WeakestSlot(party), -1);
  party[3] = Of(kBluberd, 4);  // same level, fewer hit points
  party[5] = Of(kSpiner, 9);
  EXPECT_EQ(WeakestSlot(party), 3);
}

TEST(StrategyTest, TrainingGoesToTheHardestAreaThatIsStillComfortable) {
  std::vector<MazeAreaView> areas;
  areas.push_back({1, 1, 2, 2, 0, 6, 1, 3});      // 0: easy
  areas.push_back({4, 1, 5, 2, 30, 35, 40, 45});  // 1: far too hard
  areas.push_back({1, 4, 2, 5, 0, 6, 3, 5});      // 2: a little harder
  EXPECT_EQ(RankTrainingAreas(areas, Of(kSpiner, 12), kNormal), (std::vector<int>{2, 0, 1}));
  // Too weak for any: the easiest first.
  EXPECT_EQ(RankTrainingAreas(areas, Of(kFleenu, 1), kNormal), (std::vector<int>{0, 2, 1}));
  // An area is worth walking while one of its encounter areas is.
  EXPECT_TRUE(WorthTraining(areas, Of(kSpiner, 12), kNormal));
  EXPECT_FALSE(WorthTraining({areas[1]}, Of(kSpiner, 12), kNormal));
  // The typical Kindrel of a one-species, one-level area is that Kindrel.
  const MazeAreaView bluberds{0, 0, 0, 0, kBluberd, kBluberd, 2, 2};
  EXPECT_FLOAT_EQ(TypicalRatio(bluberds, Of(kFleenu, 3), kNormal), DuelRatio(Of(kFleenu, 3), Of(kBluberd, 2), kNormal));
}

// A maze from rows of cell characters, with events on given cells.
MazeView Maze(const std::vector<std::string>& rows, std::vector<MazeEventView> events = {}) {
  MazeView maze;
  maze.height = static_cast<int>(rows.size());
  maze.width = static_cast<int>(rows.front().size());
  for (const std::string& row : rows) maze.cells.insert(maze.cells.end(), row.begin(), row.end());
  maze.events = std::move(events);
  return maze;
}

using Way = std::vector<std::pair<int, int>>;

// Walks from (x, y) until one of the target cells is reached; the cells on the way, the
// target last (none when there is no first step).
Way Walk(const MazeView& maze, int x, int y, const Way& targets) {
  std::vector<bool> target(static_cast<std::size_t>(maze.width) * maze.height, false);
  for (auto [tx, ty] : targets) target[static_cast<std::size_t>(ty) * maze.width + tx] = true;
  Way way;
  for (int i = 0; i < 100; ++i) {
    const auto step = FirstStepToward(maze, x, y, target);
    if (!step) break;
    x += step->dx;
    y += step->dy;
    way.push_back({x, y});
    if (target[static_cast<std::size_t>(y) * maze.width + x]) break;
  }
  return way;
}

TEST(StrategyTest, TheWayGoesRoundWallsAndPastExitsThatAreNoTarget) {
  const MazeView maze = Maze({
      "11111",
      "10001",
      "12101",
      "10001",
      "11111",
  });
  // From (1, 3) to (1, 1): the short way over the exit at (1, 2) would leave the maze.
  EXPECT_EQ(Walk(maze, 1, 3, {{1, 1}}), (Way{{2, 3}, {3, 3}, {3, 2}, {3, 1}, {2, 1}, {1, 1}}));
  // Wanting out, the exit is a target like any other.
  EXPECT_EQ(Walk(maze, 3, 1, {{1, 2}}), (Way{{2, 1}, {1, 1}, {1, 2}}));
  EXPECT_TRUE(Walk(maze, 1, 3, {{0, 0}}).empty()) << "a wall";
  EXPECT_TRUE(Walk(maze, 1, 3, {{1, 3}}).empty()) << "already there";
}

TEST(StrategyTest, EventsBlockUntilPassableAndCostMoreThanFloor) {
  const MazeEventView gate{.x = 2, .y = 1, .symbol = 'G', .marked = true, .passable = false};
  // A gate G at (2, 1) on the short way, and a way round through row 3.
  MazeView maze = Maze({"11111", "10G01", "10101", "10001", "11111"}, {gate});
  const Way round{{1, 2}, {1, 3}, {2, 3}, {3, 3}, {3, 2}, {3, 1}};
  EXPECT_EQ(Walk(maze, 1, 1, {{3, 1}}), round);
  // Open, the gate would show its text again: four steps more are cheaper than that.
  maze.events[0].passable = true;
  EXPECT_EQ(Walk(maze, 1, 1, {{3, 1}}), round);
  // As the target itself it is walked onto.
  EXPECT_EQ(Walk(maze, 1, 1, {{2, 1}}), (Way{{2, 1}}));

  // Without a way round, a locked gate is a wall and an open one a door.
  MazeView corridor = Maze({"11111", "10G01", "11111"}, {gate});
  EXPECT_TRUE(Walk(corridor, 1, 1, {{3, 1}}).empty());
  corridor.events[0].passable = true;
  EXPECT_EQ(Walk(corridor, 1, 1, {{3, 1}}), (Way{{2, 1}, {3, 1}}));
}

}  // namespace
}  // namespace autoplay
