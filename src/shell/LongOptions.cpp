#include "shell/LongOptions.h"

LongOptions ReadLongOptions(const std::vector<std::string>& words) {
  LongOptions options;
  for (const std::string& word : words) {
    if (word.rfind("--", 0) != 0) {
      options.commandLine += (options.commandLine.empty() ? "" : " ") + word;
    } else if (options.action != LongOptions::Action::Play) {
      continue;  // the first option decides
    } else if (word == "--help") {
      options.action = LongOptions::Action::Help;
    } else if (word == "--version") {
      options.action = LongOptions::Action::Version;
    } else {
      options.action = LongOptions::Action::Unknown;
      options.unknown = word;
    }
  }
  return options;
}

std::string UsageText() {
  return "Usage: quarnwick [-F] [-D[n]] [-T] [--help] [--version]\n"
         "Catch and raise Kindrels on an island and beat its six wizards.\n"
         "\n"
         "The classic switches may begin with - or /, in either letter case:\n"
         "  -F          play in a window instead of full screen\n"
         "  -D[n], -T   accepted, with no effect\n"
         "  --help      print this and end\n"
         "  --version   print the game's name and version and end\n"
         "\n"
         "The window is kept as it was last left, and the loudness of the effects and the\n"
         "music is set, in $XDG_CONFIG_HOME/quarnwick/quarnwick.conf (else\n"
         "~/.config/quarnwick/quarnwick.conf). Saved games go to $XDG_DATA_HOME/quarnwick/saves\n"
         "(else ~/.local/share/quarnwick/saves). QUARNWICK_SEED=<number> fixes the random seed.\n"
         "Keys, the gamepad and the rest: see quarnwick(6).\n";
}
