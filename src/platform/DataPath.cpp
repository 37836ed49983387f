#include "platform/DataPath.h"

#include <filesystem>
#include <system_error>

// Set by the build from the install layout it was configured for.
#ifndef QUARNWICK_INSTALLED_DATA
#define QUARNWICK_INSTALLED_DATA "/usr/local/share/quarnwick"
#endif
#ifndef QUARNWICK_DATA_FROM_BIN
#define QUARNWICK_DATA_FROM_BIN "../share/quarnwick"
#endif

namespace platform {
namespace {

std::string& OverrideRoot() {
  static std::string root;
  return root;
}

bool HoldsData(const std::string& folder) {
  std::error_code error;
  return std::filesystem::is_directory(folder + "/dat", error);
}

}  // namespace

std::string ExecutableFolder() {
  std::error_code error;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return ".";
  return exe.parent_path().string();
}

std::vector<std::string> DataRootCandidates() {
  const std::string beside = ExecutableFolder();
  // Installed: the data folder as seen from the program's own folder, wherever the tree
  // was installed or unpacked; then the folder the build was configured to install to.
  const std::string installed = (std::filesystem::path(beside) / QUARNWICK_DATA_FROM_BIN).lexically_normal().string();
  return {beside, installed, QUARNWICK_INSTALLED_DATA};
}

std::string DataRoot() {
  if (!OverrideRoot().empty()) return OverrideRoot();
  static const std::string found = [] {
    const std::vector<std::string> candidates = DataRootCandidates();
    for (const std::string& folder : candidates)
      if (HoldsData(folder)) return folder;
    return candidates.back();
  }();
  return found;
}

bool DataRootHoldsData() { return HoldsData(DataRoot()); }

void SetDataRoot(const std::string& folder) { OverrideRoot() = folder; }

std::string DataPath(const std::string& gameName) {
  std::string path = gameName;
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
  if (!path.empty() && path[0] == '/') return path;
  return DataRoot() + "/" + path;
}

}  // namespace platform
