// Quarnwick: the entry point.
#include <string>

#include "platform/DataPath.h"
#include "platform/SdlBackend.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "shell/Application.h"

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
  std::string commandLine;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) commandLine += ' ';
    commandLine += argv[i];
  }
  platform::SdlBackend backend;
  platform::InstallBackend(&backend);
  int exitCode = 1;
  if (DataIsThere()) {
    Application application;
    if (application.StartUp(commandLine, [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); }, ShutDownGame)) {
      exitCode = application.Run();
      application.ShutDown();
    }
  }
  platform::InstallBackend(nullptr);
  return exitCode;
}
