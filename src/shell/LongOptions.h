#pragma once
// The options of a Linux program beside the classic switches: --help and --version answer
// without opening a window; any other word that begins with "--" is not understood. The
// other words are the classic command line.
#include <string>
#include <vector>

struct LongOptions {
  enum class Action { Play, Help, Version, Unknown };
  Action action = Action::Play;
  std::string unknown;      // the first option not understood
  std::string commandLine;  // the other words, for the classic switches
};

LongOptions ReadLongOptions(const std::vector<std::string>& words);
// What --help prints.
std::string UsageText();
