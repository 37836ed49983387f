// areacheck FILE...: checks the area files, given in tier order, and says what is wrong
// with each. Exit code 0 when nothing is.
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "AreaCheck.h"
#include "platform/Font.h"

int main(int argc, char** argv) {
  AreaCheckOptions options;
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("--data=", 0) == 0) options.dataRoot = arg.substr(7);
    // The game opens relative names in its data folder; a name typed here means the shell's folder.
    else files.push_back(std::filesystem::absolute(arg).string());
  }
  if (files.empty()) {
    std::fprintf(stderr, "usage: areacheck [--data=FOLDER] FILE...\n");
    return 2;
  }
  const auto font = platform::Font::Open("Arial Bold", 24, 400);
  if (!font) std::fprintf(stderr, "areacheck: no font for the event panel; texts are not measured\n");
  options.font = font.get();
  std::vector<std::string> overall;
  int problems = 0;
  for (const AreaReport& report : CheckAreas(files, options, &overall)) {
    for (const std::string& problem : report.problems) std::printf("%s: %s\n", report.file.c_str(), problem.c_str());
    problems += static_cast<int>(report.problems.size());
  }
  for (const std::string& problem : overall) std::printf("areas: %s\n", problem.c_str());
  problems += static_cast<int>(overall.size());
  if (problems == 0) std::printf("%zu area files, no problems\n", files.size());
  return problems == 0 ? 0 : 1;
}
