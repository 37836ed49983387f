#include "platform/DataPath.h"

#include <filesystem>
#include <system_error>

#ifndef QUARNWICK_INSTALLED_DATA
#define QUARNWICK_INSTALLED_DATA "/usr/local/share/quarnwick"
#endif

namespace platform {
namespace {

std::string& OverrideRoot() {
  static std::string root;
  return root;
}

}  // namespace

std::string ExecutableFolder() {
  std::error_code error;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return ".";
  return exe.parent_path().string();
}

std::string DataRoot() {
  if (!OverrideRoot().empty()) return OverrideRoot();
  static const std::string found = [] {
    std::error_code error;
    const std::string beside = ExecutableFolder();
    if (std::filesystem::is_directory(beside + "/dat", error)) return beside;
    // Installed: bin/quarnwick finds share/quarnwick beside bin/, wherever the prefix is.
    const std::string installed = beside + "/../share/quarnwick";
    if (std::filesystem::is_directory(installed + "/dat", error)) return installed;
    return std::string(QUARNWICK_INSTALLED_DATA);
  }();
  return found;
}

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
