#pragma once
// The autoplayer's judgement, worked out from what the screens show: which spell a
// creature casts, how a duel between two creatures is likely to go, who fights a wild
// Kindrel, when the party is ready for a wizard, which creature the market takes, and the
// way through a maze. Nothing here touches the game; it only reads.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "creatures/Kindrel.h"
#include "creatures/SpeciesTable.h"

namespace autoplay {

// A creature as a duel sees it: what it is, how strong, and how many hit points it has now.
struct Fighter {
  const SpeciesInfo* species = nullptr;
  int level = 1;
  int hitPoints = 0;

  static Fighter Of(const Kindrel& creature) { return {creature.species, creature.level, creature.hitPoints}; }
  // A fresh creature of the species at the level, with full hit points.
  static Fighter Fresh(const SpeciesInfo& species, int level) { return {&species, level, species.toughness * level}; }
  int MaxHitPoints() const { return species->toughness * level; }
  int SpellsKnown() const { return SpellsKnownAtLevel(level); }
};

// The chance that a damaging spell of the attacker hits the defender: the hit value
// against a roll of 0..19, with the player's bonuses (+3 on EASY, +3 at level 1) when the
// attacker is the player's creature.
float HitChance(const Fighter& attacker, const Fighter& defender, bool attackerIsPlayers, int difficulty);

// The damage one hit of the spell does at the caster's level (boosts and pure status
// spells do none).
int SpellDamage(const SpellInfo& spell, int casterLevel);

// The slot of the damaging spell with the most damage among the first `spellsKnown`
// spells of the species; on a tie the one that also lays a status effect, then the
// earlier slot. 0 when none damages.
int BestSpellSlot(const SpeciesInfo& species, int level, int spellsKnown);

// Expected damage per turn: the player's creature always casts its best spell; an
// opponent casts one of its known spells at random.
float PlayerDamagePerTurn(const Fighter& mine, const Fighter& foe, int difficulty);
float OpponentDamagePerTurn(const Fighter& foe, const Fighter& mine);

// How a duel is likely to end: (my hit points x my damage per turn) over the foe's. Above
// 1 the player's creature is expected to win, and what is left of its strength after the
// duel is the difference of the two products.
float DuelRatio(const Fighter& mine, const Fighter& foe, int difficulty);

// How a whole party is likely to fare against one foe, its creatures fighting one after
// the other until one of them wins: the sum of their duel ratios (each creature wears the
// foe down for as long as it lasts). Below 1 the foe is expected to beat them all.
float PartyRatio(const std::vector<std::optional<Fighter>>& party, const Fighter& foe, int difficulty);

// The party slot that should fight the foe, from the slots whose creatures can fight:
// the lowest level among those expected to win comfortably (so that experience goes
// where it is worth most), else the strongest. -1 when nobody can fight.
int ChooseFighter(const std::vector<std::optional<Fighter>>& party, const Fighter& foe, int difficulty);

// The strength of a team against another: the sum over its members of hit points x
// average damage per turn against the other side's members.
float PartyStrength(const std::vector<Fighter>& mine, const std::vector<Fighter>& team, int difficulty);
float TeamStrength(const std::vector<Fighter>& team, const std::vector<Fighter>& mine);

// The party slot to give away at the market: the weakest (lowest level, then fewest full
// hit points, then the later slot). -1 with fewer than two creatures.
int WeakestSlot(const std::vector<std::optional<Fighter>>& party);

// A maze as the autoplayer sees it.
struct MazeEventView {
  int x = -1, y = -1;
  int symbol = 0;
  bool marked = false;    // shown with a marker (its symbol is below 'a')
  bool passable = true;   // needs nothing, or a held item matches what it needs
  bool visited = false;   // its text has been read in this game
};
struct MazeAreaView {
  int left = -1, top = -1, right = -1, bottom = -1;
  int speciesMin = 0, speciesMax = 0, levelMin = 1, levelMax = 1;
  bool Contains(int x, int y) const { return left <= x && x <= right && top <= y && y <= bottom; }
};
struct MazeView {
  int width = 0, height = 0;
  std::vector<std::int32_t> cells;  // row-major cell characters
  std::vector<MazeEventView> events;
  std::vector<MazeAreaView> areas;

  std::int32_t At(int x, int y) const;
  const MazeEventView* EventAt(int x, int y) const;
  bool IsExit(int x, int y) const { return At(x, y) == '2'; }
};

struct GridStep {
  int dx = 0, dy = 0;
};

// The first step of the cheapest way from (x, y) to any target cell (target is indexed
// like the cells). Walls and the grid's edge block; an exit is entered only when it is a
// target; an event that the player cannot pass blocks; every other event cell costs more
// than floor, so that the way goes round events already read. Empty when no target can
// be reached or the player stands on the only one.
std::optional<GridStep> FirstStepToward(const MazeView& maze, int x, int y, const std::vector<bool>& target);

// The average duel ratio of the creature against the Kindrels an encounter area sends
// (every species and level of its ranges alike; the top of the level range is never met).
float TypicalRatio(const MazeAreaView& area, const Fighter& mine, int difficulty);

// The encounter areas in the order in which to try them for training: first those whose
// typical Kindrel the strongest creature beats comfortably, highest levels first; then
// the others, lowest levels first.
std::vector<int> RankTrainingAreas(const std::vector<MazeAreaView>& areas, const Fighter& strongest, int difficulty);

// Whether a wild area is worth training in: the strongest creature can expect to beat
// the typical Kindrel of at least one of its encounter areas.
bool WorthTraining(const std::vector<MazeAreaView>& areas, const Fighter& strongest, int difficulty);

}  // namespace autoplay
