#pragma once
// The command line: switches behind "-" or "/". F opens a window instead of the full
// screen; D (with an optional number) and T are accepted and do nothing. Anything else
// is skipped word by word.
#include <string>

struct CommandLineSwitches {
  int windowed = 0;
};

CommandLineSwitches ParseCommandLine(const std::string& text);
