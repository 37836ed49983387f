#include "shell/CommandLine.h"

#include <cctype>

namespace {

bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

}  // namespace

CommandLineSwitches ParseCommandLine(const std::string& text) {
  CommandLineSwitches switches;
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (i < n) {
    while (i < n && IsSpace(text[i])) ++i;
    if (i >= n) break;
    if ((text[i] == '-' || text[i] == '/') && i + 1 < n) {
      const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(text[i + 1])));
      if (letter == 'F') switches.windowed = 1;
      // D takes a number directly behind it, which is read past and ignored like the rest.
    }
    while (i < n && !IsSpace(text[i])) ++i;
  }
  return switches;
}
