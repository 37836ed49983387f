#include "Strategy.h"

#include <algorithm>
#include <queue>
#include <tuple>

#include "creatures/PlayerRecord.h"

namespace autoplay {

namespace {

// A duel won by this margin or more counts as comfortable.
constexpr float kComfortable = 2.0f;
// An area is worth training in when its typical Kindrel is beaten by this margin.
constexpr float kWorthTraining = 1.5f;
// What a way through an event cell costs that the player does not want to read again.
constexpr int kEventCellCost = 6;

bool LaysEffect(const SpellInfo& spell) {
  return std::any_of(std::begin(spell.effect), std::end(spell.effect), [](float e) { return e > 0.0f; });
}

float Ratio(float mine, float theirs) {
  if (theirs <= 0.0f) return mine > 0.0f ? 1e6f : 0.0f;
  return mine / theirs;
}

}  // namespace

float HitChance(const Fighter& attacker, const Fighter& defender, bool attackerIsPlayers, int difficulty) {
  int value = static_cast<int>(static_cast<float>(attacker.species->smarts - defender.species->smarts)) + 10;
  if (attackerIsPlayers) {
    if (difficulty == kEasy) value += 3;
    if (attacker.level == 1) value += 3;
  }
  return static_cast<float>(std::clamp(value, 0, 20)) / 20.0f;
}

int SpellDamage(const SpellInfo& spell, int casterLevel) {
  if (spell.power < 1.0f) return 0;
  return static_cast<int>(static_cast<float>(casterLevel) * spell.power);
}

int BestSpellSlot(const SpeciesInfo& species, int level, int spellsKnown) {
  int best = 0;
  std::pair<int, bool> bestValue{-1, false};
  for (int slot = 0; slot < std::min(spellsKnown, kSpeciesSpellCount); ++slot) {
    const SpellInfo& spell = spellTable[species.spells[slot]];
    const std::pair<int, bool> value{SpellDamage(spell, level), LaysEffect(spell)};
    if (value.first > 0 && value > bestValue) {
      best = slot;
      bestValue = value;
    }
  }
  return best;
}

float PlayerDamagePerTurn(const Fighter& mine, const Fighter& foe, int difficulty) {
  const int slot = BestSpellSlot(*mine.species, mine.level, mine.SpellsKnown());
  const int damage = SpellDamage(spellTable[mine.species->spells[slot]], mine.level);
  return static_cast<float>(damage) * HitChance(mine, foe, true, difficulty);
}

float OpponentDamagePerTurn(const Fighter& foe, const Fighter& mine) {
  const int known = std::min(foe.SpellsKnown(), kSpeciesSpellCount);
  float total = 0.0f;
  for (int slot = 0; slot < known; ++slot) {
    total += static_cast<float>(SpellDamage(spellTable[foe.species->spells[slot]], foe.level));
  }
  return total / static_cast<float>(known) * HitChance(foe, mine, false, kNormal);
}

float DuelRatio(const Fighter& mine, const Fighter& foe, int difficulty) {
  const float myStrength = static_cast<float>(mine.hitPoints) * PlayerDamagePerTurn(mine, foe, difficulty);
  const float foeStrength = static_cast<float>(foe.hitPoints) * OpponentDamagePerTurn(foe, mine);
  return Ratio(myStrength, foeStrength);
}

float PartyRatio(const std::vector<std::optional<Fighter>>& party, const Fighter& foe, int difficulty) {
  float total = 0.0f;
  for (const std::optional<Fighter>& creature : party) {
    if (creature && creature->hitPoints > 0) total += DuelRatio(*creature, foe, difficulty);
  }
  return total;
}

int ChooseFighter(const std::vector<std::optional<Fighter>>& party, const Fighter& foe, int difficulty) {
  int comfortable = -1, strongest = -1;
  float strongestRatio = -1.0f;
  for (int slot = 0; slot < static_cast<int>(party.size()); ++slot) {
    if (!party[slot] || party[slot]->hitPoints <= 0) continue;
    const float ratio = DuelRatio(*party[slot], foe, difficulty);
    if (ratio >= kComfortable && (comfortable < 0 || party[slot]->level < party[comfortable]->level)) comfortable = slot;
    if (ratio > strongestRatio) {
      strongest = slot;
      strongestRatio = ratio;
    }
  }
  return comfortable >= 0 ? comfortable : strongest;
}

float PartyStrength(const std::vector<Fighter>& mine, const std::vector<Fighter>& team, int difficulty) {
  if (team.empty()) return 0.0f;
  float total = 0.0f;
  for (const Fighter& creature : mine) {
    float damage = 0.0f;
    for (const Fighter& foe : team) damage += PlayerDamagePerTurn(creature, foe, difficulty);
    total += static_cast<float>(creature.hitPoints) * damage / static_cast<float>(team.size());
  }
  return total;
}

float TeamStrength(const std::vector<Fighter>& team, const std::vector<Fighter>& mine) {
  if (mine.empty()) return 0.0f;
  float total = 0.0f;
  for (const Fighter& foe : team) {
    float damage = 0.0f;
    for (const Fighter& creature : mine) damage += OpponentDamagePerTurn(foe, creature);
    total += static_cast<float>(foe.hitPoints) * damage / static_cast<float>(mine.size());
  }
  return total;
}

int WeakestSlot(const std::vector<std::optional<Fighter>>& party) {
  int weakest = -1, count = 0;
  for (int slot = 0; slot < static_cast<int>(party.size()); ++slot) {
    if (!party[slot]) continue;
    ++count;
    if (weakest < 0) {
      weakest = slot;
      continue;
    }
    const Fighter& a = *party[slot];
    const Fighter& b = *party[weakest];
    if (std::make_tuple(a.level, a.MaxHitPoints()) <= std::make_tuple(b.level, b.MaxHitPoints())) weakest = slot;
  }
  return count >= 2 ? weakest : -1;
}

std::int32_t MazeView::At(int x, int y) const {
  if (x < 0 || y < 0 || x >= width || y >= height) return '1';
  return cells[static_cast<std::size_t>(y) * width + x];
}

const MazeEventView* MazeView::EventAt(int x, int y) const {
  const MazeEventView* found = nullptr;
  for (const MazeEventView& event : events) {
    if (event.x == x && event.y == y) found = &event;  // the last one is the one that opens
  }
  return found;
}

std::optional<GridStep> FirstStepToward(const MazeView& maze, int x, int y, const std::vector<bool>& target) {
  constexpr GridStep kSteps[4] = {{0, -1}, {0, 1}, {-1, 0}, {1, 0}};
  const int cellCount = maze.width * maze.height;
  if (x < 0 || y < 0 || x >= maze.width || y >= maze.height || static_cast<int>(target.size()) < cellCount) return {};
  const int start = y * maze.width + x;
  std::vector<int> cost(cellCount, -1);
  std::vector<int> firstMove(cellCount, -1);
  // (cost, order of discovery, cell): the order keeps equal ways in a fixed preference.
  using Entry = std::tuple<int, int, int>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  int order = 0;
  cost[start] = 0;
  open.push({0, order++, start});
  while (!open.empty()) {
    const auto [c, ignored, cell] = open.top();
    open.pop();
    if (c != cost[cell]) continue;
    if (cell != start && target[cell]) return kSteps[firstMove[cell]];
    const int cx = cell % maze.width, cy = cell / maze.width;
    if (cell != start && maze.IsExit(cx, cy)) continue;  // stepping onto an exit leaves
    for (int k = 0; k < 4; ++k) {
      const int nx = cx + kSteps[k].dx, ny = cy + kSteps[k].dy;
      const std::int32_t ch = maze.At(nx, ny);
      if (ch == '1') continue;
      const int next = ny * maze.width + nx;
      int stepCost = 1;
      if (ch == '2' && !target[next]) continue;
      if (const MazeEventView* event = ch != '0' ? maze.EventAt(nx, ny) : nullptr) {
        if (!event->passable) continue;
        if (!target[next]) stepCost = kEventCellCost;
      }
      const int reached = c + stepCost;
      if (cost[next] >= 0 && cost[next] <= reached) continue;
      cost[next] = reached;
      firstMove[next] = cell == start ? k : firstMove[cell];
      open.push({reached, order++, next});
    }
  }
  return {};
}

float TypicalRatio(const MazeAreaView& area, const Fighter& mine, int difficulty) {
  const int lowSpecies = std::clamp(area.speciesMin, 0, kSpeciesCount - 1);
  const int highSpecies = std::clamp(area.speciesMax, lowSpecies, kSpeciesCount - 1);
  const int lowLevel = std::max(area.levelMin, 1);
  const int highLevel = area.levelMax > lowLevel ? area.levelMax - 1 : lowLevel;
  float ratios = 0.0f;
  int count = 0;
  for (int s = lowSpecies; s <= highSpecies; ++s) {
    for (int level = lowLevel; level <= highLevel; ++level) {
      // A foe that can do no harm would outweigh all the others.
      ratios += std::min(DuelRatio(mine, Fighter::Fresh(speciesTable[s], level), difficulty), 100.0f);
      ++count;
    }
  }
  return ratios / static_cast<float>(count);
}

std::vector<int> RankTrainingAreas(const std::vector<MazeAreaView>& areas, const Fighter& strongest, int difficulty) {
  struct Rated {
    int index;
    bool comfortable;
    int levels;  // the sum of the two ends of the level range, for the order
  };
  std::vector<Rated> rated;
  for (int i = 0; i < static_cast<int>(areas.size()); ++i) {
    rated.push_back({i, TypicalRatio(areas[i], strongest, difficulty) >= kComfortable,
                     areas[i].levelMin + areas[i].levelMax});
  }
  std::stable_sort(rated.begin(), rated.end(), [](const Rated& a, const Rated& b) {
    if (a.comfortable != b.comfortable) return a.comfortable;
    return a.comfortable ? a.levels > b.levels : a.levels < b.levels;
  });
  std::vector<int> order;
  for (const Rated& r : rated) order.push_back(r.index);
  return order;
}

bool WorthTraining(const std::vector<MazeAreaView>& areas, const Fighter& strongest, int difficulty) {
  return std::any_of(areas.begin(), areas.end(), [&](const MazeAreaView& area) {
    return TypicalRatio(area, strongest, difficulty) >= kWorthTraining;
  });
}

}  // namespace autoplay
