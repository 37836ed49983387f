#include "Autoplayer.h"

#include <algorithm>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <strings.h>

#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "screens/MarketScreen.h"
#include "screens/OptionsScreen.h"
#include "screens/TowerScreen.h"
#include "shell/Globals.h"
#include "world/EventScreen.h"
#include "world/LocationTable.h"
#include "world/MazeScreen.h"

namespace autoplay {

namespace {

// One frame of the game's clock: a frame runs when more than 33 ms have passed.
constexpr std::uint32_t kFrameMilliseconds = 34;
// A screen that stays on top this long (game clock) without a change is stuck.
constexpr std::uint64_t kLongestOnOneScreen = 30ull * 60 * 1000;

// Where things are on the screens.
struct Point {
  int x, y;
};
constexpr Point kMenuNewGame{320, 295};
constexpr Point kMenuOptions{320, 355};
constexpr Point kOptionsContinue{320, 290};
constexpr Point kOptionsDifficulty{320, 355};
constexpr Point kOptionsTextSpeed{320, 385};
constexpr Point kPlaceExit{320, 360};  // the home's EXIT and the tower's button
constexpr Point kMarketGiveAway{220, 355};
constexpr Point kMarketDone{420, 355};
constexpr Point kCombatCatch{590, 302};
constexpr Point kCombatChange{590, 332};
constexpr Point kCombatRetreat{590, 357};
constexpr Point kCombatMessage{320, 100};  // above the panels, where no widget is

Point PartyBox(int slot) { return {58 + 105 * slot, 427}; }
Point SpellButton(int slot) { return {100, 210 + 26 * slot}; }

// A wild Kindrel that the whole party is not expected to wear down is left alone.
constexpr float kRetreatBelow = 1.0f;
// The fighting creature stays in as long as it is expected to win by this much.
constexpr float kKeepFighting = 1.2f;
// How much stronger than a wizard's team the party wants to be before its first try;
// each lost try adds kMarginStep.
constexpr float kFirstMargin = 2.0f;
constexpr float kMarginStep = 0.5f;
// Catching fails three times in four, and every failure gives the wild Kindrel a free
// turn: after this many tries the player fights instead.
constexpr int kMostCatchTries = 4;
// A duel in which neither side's spells get through would never end; a person gives up.
constexpr int kMostIdleTurns = 40;

const char* ScreenName(const GameMode* screen) { return screen ? screen->GetName() : ""; }

// The open wild areas, the newest (highest tier) first.
std::vector<int> OpenAreaRows() {
  std::vector<int> rows;
  for (int row = 0; row < kLocationCount; ++row) {
    if (locationTable[row].open == 1 && IsWildArea(locationTable[row])) rows.push_back(row);
  }
  std::stable_sort(rows.begin(), rows.end(), [](int a, int b) { return locationTable[a].tier > locationTable[b].tier; });
  return rows;
}

int TowerRow(int tier) {
  for (int row = 0; row < kLocationCount; ++row) {
    if (locationTable[row].kind == kLocationTower && locationTable[row].tier == tier) return row;
  }
  return -1;
}

std::uint32_t KeyOf(const GridStep& step) {
  if (step.dy < 0) return platform::VK_RIGHT;
  if (step.dy > 0) return platform::VK_LEFT;
  return step.dx < 0 ? platform::VK_UP : platform::VK_DOWN;
}

// The wizard's team as the tower builds it: a species met twice has the later level.
std::vector<Fighter> WizardTeam(int tower) {
  std::vector<Fighter> team;
  for (int i = 0; i < 6 && wizardTeamSpecies[tower][i] >= 0; ++i) {
    const int species = wizardTeamSpecies[tower][i];
    int level = wizardTeamLevels[tower][i];
    for (int j = i + 1; j < 6 && wizardTeamSpecies[tower][j] >= 0; ++j) {
      if (wizardTeamSpecies[tower][j] == species) level = wizardTeamLevels[tower][j];
    }
    team.push_back(Fighter::Fresh(speciesTable[species], level));
  }
  return team;
}

// Does a held item answer the event's need? The same test as the event screen's: an item
// whose name begins with the need, in any letter case.
bool HoldsItemFor(const char* needs) {
  if (needs[0] == '\0') return true;
  const std::size_t length = std::strlen(needs);
  for (ScreenObject* item = thePlayer.items.First(); item; item = thePlayer.items.Next()) {
    if (strncasecmp(item->GetName(), needs, length) == 0) return true;
  }
  return false;
}

}  // namespace

Autoplayer::Autoplayer(const Options& chosen)
    // Without QUARNWICK_SEED the game seeds itself from the clock, as on a real machine.
    : options(chosen),
      backend(static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                             std::chrono::steady_clock::now().time_since_epoch())
                                             .count())) {
  wizardMargin.fill(kFirstMargin);
}

Autoplayer::~Autoplayer() {
  if (application && started) application->ShutDown();
  application.reset();
  platform::InstallBackend(nullptr);
}

Outcome Autoplayer::Play() {
  backend.SetAudioPresent(false);  // nobody listens; the sounds only cost time
  platform::InstallBackend(&backend);
  application = std::make_unique<Application>();
  seed = StartingSeed();
  started =
      application->StartUp("-F", [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); }, ShutDownGame) != 0;
  if (!started) {
    reason = "the game could not start";
    return Outcome::Stuck;
  }
  lastClock = backend.TickCount();
  while (!finished) {
    // A combat that has just left is counted before anything else looks at the result.
    if (inCombat && !dynamic_cast<CombatMode*>(currentScreen)) CombatEnded();
    if (application->Ended()) {
      reason = "the game ended";
      outcome = Outcome::Stuck;
      break;
    }
    if (GoalReached()) {
      outcome = Outcome::GoalReached;
      break;
    }
    int encounters = 0;
    for (const TierStats& tier : stats) encounters += tier.encounters;
    if (encounters >= options.maxEncounters) {
      reason = "the cap of " + std::to_string(options.maxEncounters) + " encounters was reached";
      outcome = Outcome::CapReached;
      break;
    }
    if (gameHours >= options.maxHours) {
      reason = "the cap of " + std::to_string(static_cast<int>(options.maxHours)) + " hours of game clock was reached";
      outcome = Outcome::CapReached;
      break;
    }
    Turn();
  }
  return outcome;
}

bool Autoplayer::GoalReached() const {
  return newGameStarted && thePlayer.wizardDefeated[std::clamp(options.untilTier, 0, kTiers - 1)] == 1;
}

int Autoplayer::Tier() const {
  for (int t = 0; t < kTiers; ++t) {
    if (thePlayer.wizardDefeated[t] == 0) return t;
  }
  return kTiers;
}

TierStats& Autoplayer::Current() { return stats[std::min(Tier(), kTiers - 1)]; }

void Autoplayer::Log(const char* format, ...) const {
  if (!options.verbose) return;
  const double minutes = static_cast<double>(clockTotal) / 60000.0;
  std::fprintf(stderr, "[%7.1f min, tier %d] ", minutes, Tier());
  va_list args;
  va_start(args, format);
  std::vfprintf(stderr, format, args);
  va_end(args);
  std::fputc('\n', stderr);
}

void Autoplayer::RunFrame() {
  application->RunFor(kFrameMilliseconds);
  const std::uint32_t now = backend.TickCount();
  const std::uint32_t passed = now - lastClock;
  lastClock = now;
  clockTotal += passed;
  if (newGameStarted) {
    Current().gameMilliseconds += passed;
    gameHours += static_cast<double>(passed) / 3600000.0;
  }
}

void Autoplayer::Click(int x, int y) {
  backend.LeftClick(x, y);
  if (newGameStarted) Current().decisions += 1;
}

void Autoplayer::RightClick(int x, int y) {
  backend.RightClick(x, y);
  if (newGameStarted) Current().decisions += 1;
}

// A click during a combat message ends it at the next frame.
void Autoplayer::SkipMessage() {
  backend.LeftClick(kCombatMessage.x, kCombatMessage.y);
  if (newGameStarted) Current().skips += 1;
}

void Autoplayer::Key(std::uint32_t virtualKey) {
  backend.KeyPress(virtualKey);
  if (newGameStarted) Current().decisions += 1;
}

void Autoplayer::Turn() {
  GameMode* top = currentScreen;
  if (!top) {
    reason = "no screen is left";
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  if (top != lastTop) {
    lastTop = top;
    topSince = clockTotal;
  } else if (clockTotal - topSince > kLongestOnOneScreen) {
    reason = std::string("the screen ") + ScreenName(top) + " did not end";
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  auto* combat = dynamic_cast<CombatMode*>(top);
  const std::string name = ScreenName(top);
  if (combat) OnCombat(*combat);
  else if (name == "MAIN_OPTION_MODE") OnMainMenu();
  else if (auto* optionsScreen = dynamic_cast<OptionsScreen*>(top)) OnOptions(*optionsScreen);
  else if (name == "MAP_MODE") OnMap();
  else if (name == "HEAL MODE") OnHome();
  else if (auto* market = dynamic_cast<MarketScreen*>(top)) OnMarket(*market);
  else if (auto* tower = dynamic_cast<TowerScreen*>(top)) OnTower(*tower);
  else if (auto* maze = dynamic_cast<MazeScreen*>(top)) OnMaze(*maze);
  else if (name == "EVENT MODE") OnEvent();
  else OnUnexpected(name);
  if (!finished) RunFrame();
}

// The main menu: first the options, as the player wants them, then a new game.
void Autoplayer::OnMainMenu() {
  if (newGameStarted) {
    reason = "the game went back to the main menu";
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  const bool settled = thePlayer.difficulty == options.difficulty &&
                       (options.textSpeed == 0 || thePlayer.textSpeed == options.textSpeed);
  if (!settled) {
    Click(kMenuOptions.x, kMenuOptions.y);
    return;
  }
  Click(kMenuNewGame.x, kMenuNewGame.y);
  newGameStarted = true;
  playedDifficulty = thePlayer.difficulty;
  playedTextSpeed = thePlayer.textSpeed;
  Log("a new game");
}

void Autoplayer::OnOptions(OptionsScreen&) {
  if (thePlayer.difficulty != options.difficulty) {
    Click(kOptionsDifficulty.x, kOptionsDifficulty.y);
  } else if (options.textSpeed != 0 && thePlayer.textSpeed != options.textSpeed) {
    // A left click counts up, a right click down, both round from 10 to 1.
    const int forward = (options.textSpeed - thePlayer.textSpeed + 10) % 10;
    if (forward <= 5) Click(kOptionsTextSpeed.x, kOptionsTextSpeed.y);
    else RightClick(kOptionsTextSpeed.x, kOptionsTextSpeed.y);
  } else {
    Click(kOptionsContinue.x, kOptionsContinue.y);
  }
}

// The island: heal first, then make room, then the wizard when ready, else training.
void Autoplayer::OnMap() {
  marketSlot = -1;
  const int tier = Tier();
  int row = -1;
  if (PartyHurt()) {
    row = 0;  // Home
  } else if (WantsMarket()) {
    row = 8;
  } else if (tier < kTiers && ReadyForWizard(tier)) {
    row = TowerRow(tier);
    Log("challenges the %s", row >= 0 ? locationTable[row].name : "?");
  } else {
    row = TrainingRow();
  }
  if (row < 0) {
    reason = "no place to go on the map";
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  Click(locationTable[row].mapX, locationTable[row].mapY);
}

void Autoplayer::OnHome() { Click(kPlaceExit.x, kPlaceExit.y); }

void Autoplayer::OnMarket(MarketScreen& market) {
  if (marketSlot < 0) marketSlot = WeakestSlot(Party());
  if (marketSlot >= 0 && thePlayer.party[marketSlot]) {
    if (market.chosenSlot != marketSlot) {
      const Point box = PartyBox(marketSlot);
      Click(box.x, box.y);
    } else {
      Log("gives away %s, level %d", thePlayer.party[marketSlot]->name, thePlayer.party[marketSlot]->level);
      Click(kMarketGiveAway.x, kMarketGiveAway.y);
    }
    return;
  }
  Click(kMarketDone.x, kMarketDone.y);
}

void Autoplayer::OnTower(TowerScreen&) {
  Click(kPlaceExit.x, kPlaceExit.y);  // "Battle!", and after the battle "Leave Tower"
}

void Autoplayer::OnEvent() {
  if (auto* screen = dynamic_cast<EventScreen*>(currentScreen); screen && screen->event) {
    Log("reads event %c at (%d, %d): %.60s", static_cast<char>(screen->event->Symbol()), screen->event->x,
        screen->event->y, screen->ShownText());
    if (screen->Passed()) eventsRead.insert(VisitKey(screen->event->Symbol()));
  }
  Key(platform::VK_RETURN);  // "Continue"
}

// The plan never opens any other screen (the information screen, the pause menu, the
// temple); one that appears anyway means a click that went astray, which is a fault.
void Autoplayer::OnUnexpected(const std::string& name) {
  reason = "the screen " + name + " was opened by accident";
  if (name == "INFO_MODE") reason = "a message screen appeared";
  outcome = Outcome::Stuck;
  finished = true;
}

std::string Autoplayer::VisitKey(int symbol) const {
  const char* area = thePlayer.currentLocation ? thePlayer.currentLocation->areaFile : "";
  return std::string(area) + "#" + std::to_string(symbol);
}

// Reading the maze: its cells, its events (iterating the entry list moves the list's
// cursor, which the maze itself never relies on) and its encounter areas.
MazeView Autoplayer::ReadMaze(MazeScreen& maze) const {
  MazeView view;
  view.width = maze.grid.width;
  view.height = maze.grid.height;
  view.cells = maze.grid.cells;
  for (ScreenObject* entry = maze.entries.First(); entry; entry = maze.entries.Next()) {
    if (auto* event = dynamic_cast<MazeEvent*>(entry); event && strcasecmp(entry->GetName(), "EVENT") == 0) {
      MazeEventView seen;
      seen.x = event->x;
      seen.y = event->y;
      seen.symbol = event->Symbol();
      seen.marked = seen.symbol < kFirstHiddenSymbol;
      seen.passable = HoldsItemFor(event->needs);
      seen.visited = eventsRead.count(VisitKey(seen.symbol)) > 0;
      view.events.push_back(seen);
    } else if (auto* area = dynamic_cast<EncounterArea*>(entry); area && strcasecmp(entry->GetName(), "AREA") == 0) {
      if (area->left < 0) continue;  // no cell carries its symbol
      view.areas.push_back({area->left, area->top, area->right, area->bottom, area->speciesMin, area->speciesMax,
                            area->levelMin, area->levelMax});
    }
  }
  return view;
}

void Autoplayer::OnMaze(MazeScreen& maze) {
  if (!maze.Problem().empty()) {
    reason = maze.Problem();
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  if (combatResult == 1) {
    backend.MouseMove(320, 240);  // after a lost combat any input takes the maze back to the map
    return;
  }
  if (maze.walking) return;
  const MazeView view = ReadMaze(maze);
  const int areaRow = LocationRow(thePlayer.currentLocation);
  knownAreas[areaRow] = view.areas;
  const MazeCell at = maze.playerCell;
  const std::size_t cellCount = static_cast<std::size_t>(view.width) * view.height;
  std::vector<bool> target(cellCount, false);
  auto mark = [&](int x, int y) {
    if (x >= 0 && y >= 0 && x < view.width && y < view.height) target[static_cast<std::size_t>(y) * view.width + x] = true;
  };
  auto markExits = [&] {
    for (int y = 0; y < view.height; ++y) {
      for (int x = 0; x < view.width; ++x) {
        if (view.IsExit(x, y)) mark(x, y);
      }
    }
  };

  const int tier = Tier();
  const bool leave = NeedsHealing() || (tier < kTiers && ReadyForWizard(tier)) || areaRow != TrainingRow();
  std::optional<GridStep> step;
  if (leave) {
    markExits();
    step = FirstStepToward(view, at.x, at.y, target);
  } else {
    // Every marked event once, for its text and its item.
    for (const MazeEventView& event : view.events) {
      if (event.marked && event.passable && !event.visited) mark(event.x, event.y);
    }
    step = FirstStepToward(view, at.x, at.y, target);
    if (!step) {
      for (int index : RankTrainingAreas(view.areas, Strongest(), thePlayer.difficulty)) {
        const MazeAreaView& area = view.areas[index];
        std::fill(target.begin(), target.end(), false);
        for (int y = area.top; y <= area.bottom; ++y) {
          for (int x = area.left; x <= area.right; ++x) {
            const std::int32_t c = view.At(x, y);
            if (c == '1' || c == '2' || view.EventAt(x, y) || (x == at.x && y == at.y)) continue;
            mark(x, y);
          }
        }
        step = FirstStepToward(view, at.x, at.y, target);
        if (step) break;
      }
    }
    if (!step) {
      std::fill(target.begin(), target.end(), false);
      markExits();
      step = FirstStepToward(view, at.x, at.y, target);
    }
  }
  if (!step) {
    reason = std::string("no way on in ") + (thePlayer.currentLocation ? thePlayer.currentLocation->name : "a maze");
    outcome = Outcome::Stuck;
    finished = true;
    return;
  }
  backend.KeyPress(KeyOf(*step));
  Current().steps += 1;
}

void Autoplayer::CombatBegins(CombatMode& combat) {
  inCombat = true;
  combatIsWild = combat.catchAllowed == 1;
  combatTier = std::min(Tier(), kTiers - 1);
  fighterChosen = false;
  replacementSlot = -1;
  opponentSeen = -1;
  catchTries = 0;
  partyAtStart = thePlayer.PartyCount();
  if (combatIsWild) {
    stats[combatTier].encounters += 1;
    if (combat.opponent) Log("meets a wild %s, level %d", combat.opponent->name, combat.opponent->level);
  } else {
    stats[combatTier].wizardTries += 1;
  }
}

void Autoplayer::CombatEnded() {
  inCombat = false;
  TierStats& tier = stats[combatTier];
  if (combatIsWild) {
    if (thePlayer.PartyCount() > partyAtStart) Log("caught it");
    if (combatResult == 0) tier.won += 1;
    else if (combatResult == 2) tier.retreated += 1;
    else tier.lost += 1;
    if (combatResult == 1) Log("lost a wild combat");
    return;
  }
  if (combatResult == 0) {
    tier.wizardBeaten = true;
    tier.levelsAtWin.clear();
    for (const auto& creature : thePlayer.party) {
      if (creature) tier.levelsAtWin.push_back(creature->level);
    }
    Log("beat the wizard");
  } else {
    wizardMargin[combatTier] += kMarginStep;
    Log("lost to the wizard; now wants a margin of %.1f", wizardMargin[combatTier]);
  }
}

void Autoplayer::OnCombat(CombatMode& combat) {
  if (!inCombat) CombatBegins(combat);
  if (combat.phase != kPhaseWaiting) {
    if (options.hurry) SkipMessage();
    return;
  }
  if (!combat.opponent || !combat.Active()) return;
  const int difficulty = thePlayer.difficulty;
  const std::vector<std::optional<Fighter>> party = Party();
  const Fighter foe = Fighter::Of(*combat.opponent);

  if (combat.choosingReplacement) {
    const int slot = replacementSlot >= 0 && party[replacementSlot] ? replacementSlot : combat.activeSlot;
    const Point box = PartyBox(slot);
    Click(box.x, box.y);
    replacementSlot = -1;
    fighterChosen = true;
    expectedActive = slot;
    return;
  }
  // A new opponent, or a creature that the game sent in for a fainted one: choose afresh.
  if (combat.opponentIndex != opponentSeen || combat.activeSlot != expectedActive) fighterChosen = false;
  if (combat.opponentIndex != opponentSeen) {  // also the first opponent of a combat
    idleTurns = 0;
    opponentHitPoints = -1;
  }
  opponentSeen = combat.opponentIndex;

  const Kindrel& active = *combat.Active();
  const bool activeFit = active.hitPoints > 0;
  const float activeRatio = activeFit ? DuelRatio(Fighter::Of(active), foe, difficulty) : 0.0f;
  const int chosen = ChooseFighter(party, foe, difficulty);
  if (combatIsWild && PartyRatio(party, foe, difficulty) < kRetreatBelow) {
    Log("retreats from the %s", combat.opponent->name);
    Click(kCombatRetreat.x, kCombatRetreat.y);
    return;
  }
  if (chosen >= 0 && chosen != combat.activeSlot && (!fighterChosen || !activeFit || activeRatio < kKeepFighting)) {
    replacementSlot = chosen;
    Log("sends %s (level %d) against the %s", thePlayer.party[chosen]->name, thePlayer.party[chosen]->level,
        combat.opponent->name);
    Click(kCombatChange.x, kCombatChange.y);
    return;
  }
  fighterChosen = true;
  expectedActive = combat.activeSlot;
  const bool catchOffered = combat.widgets.FindById(kCatchButton) != nullptr;
  if (combatIsWild && catchOffered && thePlayer.FirstEmptySlot() >= 0 && activeRatio >= 1.0f &&
      catchTries < kMostCatchTries) {
    catchTries += 1;
    Log("tries to catch the %s", combat.opponent->name);
    Click(kCombatCatch.x, kCombatCatch.y);
    return;
  }
  if (combat.opponent->hitPoints < opponentHitPoints) idleTurns = 0;
  opponentHitPoints = combat.opponent->hitPoints;
  if (++idleTurns > kMostIdleTurns) {
    Log("gives up on the %s: no spell gets through", combat.opponent->name);
    Click(kCombatRetreat.x, kCombatRetreat.y);
    return;
  }
  const Point button = SpellButton(BestSpellSlot(*active.species, active.level, active.spellsKnown));
  Click(button.x, button.y);
}

std::vector<std::optional<Fighter>> Autoplayer::Party() const {
  std::vector<std::optional<Fighter>> party(kPartySize);
  for (int slot = 0; slot < kPartySize; ++slot) {
    if (thePlayer.party[slot]) party[slot] = Fighter::Of(*thePlayer.party[slot]);
  }
  return party;
}

std::vector<Fighter> Autoplayer::FullParty() const {
  std::vector<Fighter> party;
  for (const auto& creature : thePlayer.party) {
    if (creature) party.push_back(Fighter::Fresh(*creature->species, creature->level));
  }
  return party;
}

bool Autoplayer::PartyHurt() const {
  return std::any_of(std::begin(thePlayer.party), std::end(thePlayer.party), [](const auto& creature) {
    return creature && creature->hitPoints < creature->MaxHitPoints();
  });
}

// Time to go home: half the party's hit points are gone, or the strongest creature is
// down to two fifths of its own.
bool Autoplayer::NeedsHealing() const {
  int hitPoints = 0, most = 0;
  const Kindrel* strongest = nullptr;
  for (const auto& creature : thePlayer.party) {
    if (!creature) continue;
    hitPoints += std::max(creature->hitPoints, 0);
    most += creature->MaxHitPoints();
    if (!strongest || creature->level > strongest->level) strongest = creature.get();
  }
  if (!strongest || 2 * hitPoints < most) return true;
  return 5 * strongest->hitPoints < 2 * strongest->MaxHitPoints();
}

bool Autoplayer::ReadyForWizard(int tower) const {
  if (tower < 0 || tower >= kTiers) return false;
  const std::vector<Fighter> team = WizardTeam(tower);
  const std::vector<Fighter> mine = FullParty();
  return PartyStrength(mine, team, thePlayer.difficulty) >= wizardMargin[tower] * TeamStrength(team, mine);
}

// Room for a catch is wanted when the party is full and its weakest creature is weaker
// than anything the area it trains in sends.
bool Autoplayer::WantsMarket() const {
  if (thePlayer.PartyCount() < kPartySize) return false;
  const auto known = knownAreas.find(TrainingRow());
  if (known == knownAreas.end() || known->second.empty()) return false;
  int lowest = known->second.front().levelMin;
  for (const MazeAreaView& area : known->second) lowest = std::min(lowest, area.levelMin);
  const int slot = WeakestSlot(Party());
  return slot >= 0 && thePlayer.party[slot]->level < lowest;
}

// The strongest creature of the party as it is after a night at home.
Fighter Autoplayer::Strongest() const {
  Fighter best;
  for (const Fighter& creature : FullParty()) {
    if (!best.species || std::make_tuple(creature.level, creature.MaxHitPoints()) >
                             std::make_tuple(best.level, best.MaxHitPoints())) {
      best = creature;
    }
  }
  return best;
}

// Where to train: the newest open area, unless it has been walked and nothing there is
// worth fighting yet; then the newest older one that is, or at worst the oldest.
int Autoplayer::TrainingRow() const {
  const std::vector<int> rows = OpenAreaRows();
  if (rows.empty()) return -1;
  const Fighter strongest = Strongest();
  for (int row : rows) {
    const auto known = knownAreas.find(row);
    if (known == knownAreas.end()) return row;  // walked first to be known
    if (!strongest.species || WorthTraining(known->second, strongest, thePlayer.difficulty)) return row;
  }
  return rows.back();
}

}  // namespace autoplay
