#include "platform/SavesFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace platform {

std::filesystem::path UserBaseFolder(const char* variable, const char* underHome) {
  // A relative value of the variable is not valid and is ignored, as the convention asks.
  if (const char* xdg = std::getenv(variable); xdg && xdg[0] == '/') return xdg;
  std::string home;
  if (const char* env = std::getenv("HOME"); env && *env) {
    home = env;
  } else if (const passwd* user = getpwuid(getuid()); user && user->pw_dir && *user->pw_dir) {
    home = user->pw_dir;
  }
  if (home.empty()) return {};
  return std::filesystem::path(home) / underHome;
}

std::string SavesFolder() {
  const std::filesystem::path dataHome = UserBaseFolder("XDG_DATA_HOME", ".local/share");
  if (dataHome.empty()) return {};
  const std::filesystem::path folder = (dataHome / "quarnwick" / "saves").lexically_normal();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (!std::filesystem::is_directory(folder, error)) return {};
  return folder.string();
}

}  // namespace platform
