#pragma once
// The picture manifests: every assets/pictures/*.manifest holds lines
//   OUTPUT MODE WIDTH HEIGHT SOURCE
// (OUTPUT under dat/, SOURCE under assets/pictures/); '#' starts a comment. The build reads
// them in assets/CMakeLists.txt; this reader serves the tests and the contact sheet.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "PixelRules.h"

namespace baker {

struct ManifestEntry {
  std::string output;
  Mode mode = Mode::Opaque;
  int width = 0;
  int height = 0;
  std::string source;
  std::string where;  // "file:line", for messages
};

struct Manifest {
  std::vector<ManifestEntry> entries;
  std::vector<std::string> errors;
};

// Adds the lines of one manifest; `origin` names it in messages.
void ParseManifest(std::string_view text, const std::string& origin, Manifest& into);

// Reads every *.manifest of the folder in name order, then checks the whole: no output
// twice (nor twice in different case), every source present.
Manifest ReadManifests(const std::filesystem::path& picturesFolder);

}  // namespace baker
