#include "platform/Screenshot.h"

#include <ctime>
#include <filesystem>
#include <system_error>

#include "platform/AtomicFile.h"
#include "platform/PngWriter.h"
#include "platform/SavesFolder.h"

namespace platform {

std::optional<std::string> SaveScreenshot(const Surface& frame, std::string* error) {
  const std::filesystem::path base = UserBaseFolder("XDG_DATA_HOME", ".local/share");
  if (base.empty()) {
    *error = "no home folder is known";
    return std::nullopt;
  }
  const std::filesystem::path folder = base / "quarnwick" / "screenshots";
  std::error_code made;
  std::filesystem::create_directories(folder, made);
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "quarnwick-%Y%m%d-%H%M%S", &local);
  std::filesystem::path path = folder / (std::string(stamp) + ".png");
  for (int n = 2; std::filesystem::exists(path, made) && n < 1000; ++n)
    path = folder / (std::string(stamp) + "-" + std::to_string(n) + ".png");
  if (!WriteFileAtomically(path.string(), EncodePng(frame), error)) return std::nullopt;
  return path.string();
}

}  // namespace platform
