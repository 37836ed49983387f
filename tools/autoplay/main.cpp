// autoplay: plays a new game headlessly, from the main menu, through the real screens and
// rules, and prints per tier what it took. The game's data is the build folder's, or that of
// --data, a folder with a dat/ of its own (to try other area files beside the shipped ones).
//
//   autoplay [--difficulty EASY|NORMAL|HARD] [--text-speed N] [--until-tier N]
//            [--max-encounters N] [--max-hours H] [--data FOLDER] [--hurry] [--verbose]
//
// QUARNWICK_SEED fixes the game's random seed, and then a run repeats exactly. Exit code:
// 0 the goal was reached, 1 a cap was reached first, 2 the player got stuck, 64 a wrong
// option, 77 the data folder holds no area files to play.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "Autoplayer.h"
#include "Report.h"
#include "platform/DataPath.h"

namespace {

void Usage(std::FILE* out) {
  std::fprintf(out,
               "usage: autoplay [--difficulty EASY|NORMAL|HARD] [--text-speed 1..10] [--until-tier 0..5]\n"
               "                [--max-encounters N] [--max-hours H] [--data FOLDER] [--hurry] [--verbose]\n"
               "Plays a new game headlessly until the wizard of the given tier (5, the Vile Wizard, unless\n"
               "told) is beaten or a cap is reached. --hurry clicks through the combat messages instead\n"
               "of reading them. --data plays with FOLDER/dat instead of the build's data. QUARNWICK_SEED\n"
               "makes a run repeat exactly.\n");
}

bool ReadInt(const char* text, int low, int high, int* value) {
  char* end = nullptr;
  const long number = std::strtol(text, &end, 10);
  if (!end || *end != '\0' || number < low || number > high) return false;
  *value = static_cast<int>(number);
  return true;
}

bool ParseOptions(int argc, char** argv, autoplay::Options* options, std::string* dataFolder) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
    if (arg == "--verbose" || arg == "-v") {
      options->verbose = true;
      continue;
    }
    if (arg == "--hurry") {
      options->hurry = true;
      continue;
    }
    if (!value) return false;
    ++i;
    if (arg == "--difficulty") {
      const std::string name = value;
      if (name == "EASY") options->difficulty = 0;
      else if (name == "NORMAL") options->difficulty = 1;
      else if (name == "HARD") options->difficulty = 2;
      else return false;
    } else if (arg == "--text-speed") {
      if (!ReadInt(value, 1, 10, &options->textSpeed)) return false;
    } else if (arg == "--until-tier") {
      if (!ReadInt(value, 0, 5, &options->untilTier)) return false;
    } else if (arg == "--max-encounters") {
      if (!ReadInt(value, 0, 100000000, &options->maxEncounters)) return false;
    } else if (arg == "--data") {
      *dataFolder = value;
    } else if (arg == "--max-hours") {
      char* end = nullptr;
      options->maxHours = std::strtod(value, &end);
      if (!end || *end != '\0' || options->maxHours <= 0.0) return false;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
    Usage(stdout);
    return 0;
  }
  autoplay::Options options;
  std::string dataFolder = QUARNWICK_BUILD_DIR;
  if (!ParseOptions(argc, argv, &options, &dataFolder)) {
    Usage(stderr);
    return 64;
  }
  platform::SetDataRoot(dataFolder);
  const std::filesystem::path firstArea = std::filesystem::path(dataFolder) / "dat" / "genwood.dat";
  if (!std::filesystem::exists(firstArea)) {
    std::fprintf(stderr, "autoplay: %s is missing: there are no area files to play\n", firstArea.c_str());
    return 77;
  }

  const auto start = std::chrono::steady_clock::now();
  autoplay::RunFacts facts;
  facts.options = options;
  {
    autoplay::Autoplayer player(options);
    facts.outcome = player.Play();
    facts.seed = player.Seed();
    facts.difficulty = player.PlayedDifficulty();
    facts.textSpeed = player.PlayedTextSpeed();
    facts.reason = player.Reason();
    facts.wallSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    autoplay::PrintReport(stdout, facts, player.Stats());
  }
  switch (facts.outcome) {
    case autoplay::Outcome::GoalReached: return 0;
    case autoplay::Outcome::CapReached: return 1;
    case autoplay::Outcome::Stuck: return 2;
  }
  return 2;
}
