#include "platform/SavesFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {
namespace {

// The desktop's data folder. A relative $XDG_DATA_HOME is not valid and is ignored, as the
// convention asks.
std::filesystem::path DataHome() {
  if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && xdg[0] == '/') return xdg;
  std::string home;
  if (const char* env = std::getenv("HOME"); env && *env) {
    home = env;
  } else if (const passwd* user = getpwuid(getuid()); user && user->pw_dir && *user->pw_dir) {
    home = user->pw_dir;
  }
  if (home.empty()) return {};
  return std::filesystem::path(home) / ".local" / "share";
}

}  // namespace

std::string SavesFolder() {
  const std::filesystem::path dataHome = DataHome();
  if (dataHome.empty()) return {};
  const std::filesystem::path folder = (dataHome / "quarnwick" / "saves").lexically_normal();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder, error)) return {};
  return folder.string();
}

}  // namespace platform
