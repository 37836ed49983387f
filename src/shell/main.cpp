// Quarnwick: the entry point.
#include <string>

#include "platform/SdlBackend.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "shell/Application.h"

int main(int argc, char** argv) {
  std::string commandLine;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) commandLine += ' ';
    commandLine += argv[i];
  }
  platform::SdlBackend backend;
  platform::InstallBackend(&backend);
  int exitCode = 0;
  {
    Application application;
    if (application.StartUp(commandLine, [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); }, ShutDownGame)) {
      exitCode = application.Run();
      application.ShutDown();
    }
  }
  platform::InstallBackend(nullptr);
  return exitCode;
}
