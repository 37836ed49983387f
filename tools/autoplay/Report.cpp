#include "Report.h"

#include "creatures/PlayerRecord.h"

namespace autoplay {

namespace {

const char* const kWizards[kTiers] = {"Earth Wizard", "Storm Wizard", "Ocean Wizard",
                                      "Ice Wizard",   "Fire Wizard",  "Vile Wizard"};
const char* const kDifficulties[3] = {"EASY", "NORMAL", "HARD"};

std::string Levels(const TierStats& tier) {
  if (!tier.wizardBeaten) return "-";
  std::string text;
  for (int level : tier.levelsAtWin) {
    if (!text.empty()) text += ' ';
    text += std::to_string(level);
  }
  return text;
}

}  // namespace

double PlaySeconds(const TierStats& tier) {
  return static_cast<double>(tier.gameMilliseconds) / 1000.0 + kSecondsPerDecision * tier.decisions +
         kSecondsPerStep * tier.steps + kSecondsPerSkip * tier.skips;
}

std::string HoursMinutes(double seconds) {
  const long minutes = static_cast<long>(seconds / 60.0);
  char text[32];
  std::snprintf(text, sizeof text, "%ld:%02ld", minutes / 60, minutes % 60);
  return text;
}

void PrintReport(std::FILE* out, const RunFacts& facts, const std::array<TierStats, kTiers>& stats) {
  const int goal = facts.options.untilTier;
  std::fprintf(out, "Quarnwick autoplay: seed %u, ", facts.seed);
  if (facts.difficulty >= 0 && facts.difficulty < 3) {
    std::fprintf(out, "%s, text speed %d, ", kDifficulties[facts.difficulty], facts.textSpeed);
  }
  std::fprintf(out, "%sgoal: beat the %s\n", facts.options.hurry ? "messages clicked through, " : "",
               kWizards[goal >= 0 && goal < kTiers ? goal : kTiers - 1]);
  std::fprintf(out, "%4s  %-13s %10s %7s %6s %5s %9s %6s %10s  %s\n", "tier", "wizard", "encounters", "steps", "won",
               "lost", "retreated", "tries", "play time", "party levels at the win");
  TierStats total;
  double totalSeconds = 0.0;
  for (int t = 0; t < kTiers; ++t) {
    const TierStats& tier = stats[t];
    const double seconds = PlaySeconds(tier);
    std::fprintf(out, "%4d  %-13s %10d %7d %6d %5d %9d %6d %10s  %s\n", t, kWizards[t], tier.encounters, tier.steps,
                 tier.won, tier.lost, tier.retreated, tier.wizardTries, HoursMinutes(seconds).c_str(),
                 Levels(tier).c_str());
    total.encounters += tier.encounters;
    total.steps += tier.steps;
    total.won += tier.won;
    total.lost += tier.lost;
    total.retreated += tier.retreated;
    total.wizardTries += tier.wizardTries;
    total.gameMilliseconds += tier.gameMilliseconds;
    total.decisions += tier.decisions;
    total.skips += tier.skips;
    totalSeconds += seconds;
  }
  std::fprintf(out, "%4s  %-13s %10d %7d %6d %5d %9d %6d %10s\n", "all", "", total.encounters, total.steps, total.won,
               total.lost, total.retreated, total.wizardTries, HoursMinutes(totalSeconds).c_str());
  std::fprintf(out, "Play time: %s of the game's clock (a frame every 34 ms) + %d decisions x %.0f s + %d steps x %.1f s",
               HoursMinutes(static_cast<double>(total.gameMilliseconds) / 1000.0).c_str(), total.decisions,
               kSecondsPerDecision, total.steps, kSecondsPerStep);
  if (total.skips > 0) std::fprintf(out, " + %d messages cut short x %.1f s", total.skips, kSecondsPerSkip);
  std::fprintf(out, ".\n");
  if (facts.outcome == Outcome::GoalReached) {
    std::fprintf(out, "Result: the %s is beaten after %s of play.", kWizards[goal >= 0 && goal < kTiers ? goal : kTiers - 1],
                 HoursMinutes(totalSeconds).c_str());
  } else {
    std::fprintf(out, "Result: stopped, %s.", facts.reason.c_str());
  }
  std::fprintf(out, " Wall time %.1f s.\n", facts.wallSeconds);
}

}  // namespace autoplay
