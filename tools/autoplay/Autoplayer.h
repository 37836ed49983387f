#pragma once
// A player that plays a whole new game on the headless backend, from the main menu, by the
// same clicks and keys a person would make: it reads what the screens show (the screen on
// top, the maze's cells and entries, the combat's phase and opponent, the party) and
// decides from that; it never writes game state.
//
// The plan is plain: walk the newest open area toward its encounter areas (reading each
// marked event once; an older area while the newest sends nothing the party can beat),
// attack with the best spell, catch while there is room, give the weakest Kindrel away
// at the market when the party is full and it is weaker than anything the area offers,
// go home to heal when the party is weak, and challenge the next wizard when the party
// looks strong enough, training more after every loss.
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Strategy.h"
#include "platform/HeadlessBackend.h"
#include "shell/Application.h"

class CombatMode;
class MazeScreen;
class MarketScreen;
class TowerScreen;
class OptionsScreen;

namespace autoplay {

inline constexpr int kTiers = 6;

struct Options {
  int difficulty = 1;    // 0 EASY, 1 NORMAL, 2 HARD
  int textSpeed = 0;     // 1..10, or 0 to keep the game's own setting
  int untilTier = 5;     // stop when this wizard is beaten
  int maxEncounters = 50000;
  double maxHours = 500.0;  // of the game's clock
  bool hurry = false;     // click through the combat's messages instead of reading them
  bool verbose = false;
};

// What happened while the player worked toward one wizard.
struct TierStats {
  int encounters = 0;  // wild Kindrels met
  int steps = 0;       // maze steps taken
  int won = 0, lost = 0, retreated = 0;  // wild combats
  int wizardTries = 0;
  bool wizardBeaten = false;
  std::vector<int> levelsAtWin;  // the party's levels, slot by slot, when the wizard fell
  std::uint64_t gameMilliseconds = 0;
  int decisions = 0;  // clicks and keys besides maze steps
  int skips = 0;      // clicks that cut a combat message short
};

enum class Outcome { GoalReached, CapReached, Stuck };

class Autoplayer {
 public:
  explicit Autoplayer(const Options& options);
  ~Autoplayer();

  Outcome Play();
  const std::array<TierStats, kTiers>& Stats() const { return stats; }
  // Why the play stopped early (a cap, or a screen the player could not get past).
  const std::string& Reason() const { return reason; }
  std::uint32_t Seed() const { return seed; }
  // The settings the new game was started with, as the options screen left them.
  int PlayedDifficulty() const { return playedDifficulty; }
  int PlayedTextSpeed() const { return playedTextSpeed; }

 private:
  // The loop's pieces: one screen's turn, then time for the game to answer.
  void Turn();
  void RunFrame();
  bool GoalReached() const;
  int Tier() const;  // the first wizard not yet beaten (kTiers when all are)
  TierStats& Current();
  void Log(const char* format, ...) const;

  // Input, as a person gives it.
  void Click(int x, int y);
  void RightClick(int x, int y);
  void Key(std::uint32_t virtualKey);
  void SkipMessage();

  // The screens.
  void OnMainMenu();
  void OnOptions(OptionsScreen& options);
  void OnMap();
  void OnHome();
  void OnMarket(MarketScreen& market);
  void OnTower(TowerScreen& tower);
  void OnMaze(MazeScreen& maze);
  void OnEvent();
  void OnCombat(CombatMode& combat);
  void OnUnexpected(const std::string& name);
  void CombatBegins(CombatMode& combat);
  void CombatEnded();

  // Judgement.
  std::vector<std::optional<Fighter>> Party() const;
  std::vector<Fighter> FullParty() const;
  bool PartyHurt() const;
  bool NeedsHealing() const;
  bool ReadyForWizard(int tower) const;
  bool WantsMarket() const;
  Fighter Strongest() const;
  int TrainingRow() const;
  MazeView ReadMaze(MazeScreen& maze) const;
  std::string VisitKey(int symbol) const;

  Options options;
  platform::HeadlessBackend backend;
  std::unique_ptr<Application> application;
  bool started = false;
  std::uint32_t seed = 0;
  std::array<TierStats, kTiers> stats{};
  std::string reason;
  Outcome outcome = Outcome::GoalReached;
  bool finished = false;

  bool newGameStarted = false;
  int playedDifficulty = -1;
  int playedTextSpeed = 0;
  std::uint32_t lastClock = 0;
  double gameHours = 0.0;

  // The top screen and how long it has been there, to notice a screen that never ends.
  const void* lastTop = nullptr;
  std::uint64_t topSince = 0;
  std::uint64_t clockTotal = 0;

  // The combat under way.
  bool inCombat = false;
  bool combatIsWild = false;
  int combatTier = 0;
  bool fighterChosen = false;   // the fighter against this opponent has been chosen
  int replacementSlot = -1;     // the slot chosen after a click on Change
  int expectedActive = -1;      // the fighter the player left in
  int opponentSeen = -1;        // the opponent's place in its team
  int catchTries = 0;           // against this wild Kindrel
  int idleTurns = 0;            // spells cast since the opponent last lost hit points
  int opponentHitPoints = -1;   // the opponent's hit points at the last spell
  int partyAtStart = 0;

  // The maze.
  std::set<std::string> eventsRead;
  int stuckSteps = 0;
  // The encounter areas of each wild area walked so far, by location row.
  std::map<int, std::vector<MazeAreaView>> knownAreas;

  // Wizards: how much stronger than the wizard's team the party wants to be.
  std::array<float, kTiers> wizardMargin{};
  int marketSlot = -1;
};

}  // namespace autoplay
