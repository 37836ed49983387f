#pragma once
// The autoplayer's account of a game: per tier the encounters, steps, wild combats won,
// lost and retreated from, tries at the wizard, the party's levels when the wizard fell,
// and the time a person would have played.
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "Autoplayer.h"

namespace autoplay {

// A person's time: the game's own clock, plus a moment for every decision (a click or a
// key in a menu or a combat) and a shorter one for every key of a walk.
inline constexpr double kSecondsPerDecision = 2.0;
inline constexpr double kSecondsPerStep = 0.3;
inline constexpr double kSecondsPerSkip = 0.5;  // a click that cuts a combat message short

double PlaySeconds(const TierStats& tier);
// "h:mm", rounded down to the minute.
std::string HoursMinutes(double seconds);

struct RunFacts {
  Options options;
  std::uint32_t seed = 0;
  int difficulty = -1;  // as played; -1 when no game was started
  int textSpeed = 0;
  Outcome outcome = Outcome::GoalReached;
  std::string reason;
  double wallSeconds = 0.0;
};

void PrintReport(std::FILE* out, const RunFacts& facts, const std::array<TierStats, kTiers>& stats);

}  // namespace autoplay
