// Quarnwick: the entry point.
#include <cstdio>
#include <string>
#include <vector>

#include "platform/DataPath.h"
#include "platform/SdlBackend.h"
#include "platform/Settings.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "shell/Application.h"
#include "shell/LongOptions.h"

namespace {

// Without its data the game could only show a black, broken menu: it says where it looked
// instead, and does not start.
bool DataIsThere() {
  if (platform::DataRootHoldsData()) return true;
  std::string text = "The game's data cannot be found. A folder named dat was looked for in:";
  for (const std::string& folder : platform::DataRootCandidates()) text += "\n  " + folder;
  platform::MessageBox(platform::kMainWindow, text, "Quarnwick", platform::MB_OK | platform::MB_ICONHAND);
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const LongOptions options = ReadLongOptions(std::vector<std::string>(argv + 1, argv + argc));
  switch (options.action) {
    case LongOptions::Action::Help: std::fputs(UsageText().c_str(), stdout); return 0;
    case LongOptions::Action::Version: std::printf("Quarnwick %s\n", QUARNWICK_VERSION); return 0;
    case LongOptions::Action::Unknown:
      std::fprintf(stderr, "quarnwick: unknown option '%s'; 'quarnwick --help' lists the options\n",
                   options.unknown.c_str());
      return 2;
    case LongOptions::Action::Play: break;
  }
  platform::Settings settings;
  settings.Load(platform::Settings::DefaultPath());
  platform::SdlBackend backend;
  backend.UseSettings(&settings);
  platform::InstallBackend(&backend);
  int exitCode = 1;
  if (DataIsThere()) {
    Application application;
    if (application.StartUp(options.commandLine, [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); },
                            ShutDownGame)) {
      exitCode = application.Run();
      application.ShutDown();
    }
  }
  platform::InstallBackend(nullptr);
  return exitCode;
}
