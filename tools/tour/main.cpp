// tour OUTDIR [PAGE...]: renders every page (or the named ones) to OUTDIR/<page>.png.
// The game runs on the headless backend with a fixed seed and clock, so that the same
// build always gives the same pictures.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>

#include "PngFile.h"
#include "Tour.h"
#include "platform/DataPath.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "shell/Globals.h"

TourGame::TourGame(const Application::FirstScreenFactory& first) {
  platform::InstallBackend(&backend);
  application.StartUp("-F", first, ShutDownGame);
}

TourGame::~TourGame() {
  application.ShutDown();
  platform::InstallBackend(nullptr);
}

TourPage::TourPage(const char* pageName, const Application::FirstScreenFactory& firstScreen, Render pageRender)
    : name(pageName), first(firstScreen), render(std::move(pageRender)) {
  TourPages().push_back(this);
}

std::vector<TourPage*>& TourPages() {
  static std::vector<TourPage*> pages;
  return pages;
}

namespace {

bool SaveFrame(const platform::HeadlessBackend& backend, const std::string& path) {
  baker::RgbaImage image;
  image.width = backend.FrameWidth();
  image.height = backend.FrameHeight();
  if (image.width == 0) {
    std::fprintf(stderr, "tour: no frame was shown for %s\n", path.c_str());
    return false;
  }
  for (std::uint16_t p : backend.LastFrame()) {
    image.pixels.push_back({static_cast<std::uint8_t>(platform::Red8(p)), static_cast<std::uint8_t>(platform::Green8(p)),
                            static_cast<std::uint8_t>(platform::Blue8(p)), 255});
  }
  std::string error;
  if (!baker::WritePng(path, image, error)) {
    std::fprintf(stderr, "tour: %s: %s\n", path.c_str(), error.c_str());
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: tour OUTDIR [PAGE...]\n");
    return 2;
  }
  const std::filesystem::path out = argv[1];
  std::filesystem::create_directories(out);
  platform::SetDataRoot(QUARNWICK_BUILD_DIR);
  setenv("QUARNWICK_SEED", "1234", 1);
  std::vector<std::string> wanted(argv + 2, argv + argc);

  int failures = 0, rendered = 0;
  for (TourPage* page : TourPages()) {
    if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), page->name) == wanted.end()) continue;
    TourGame game(page->first);
    if (page->render) page->render(game);
    game.RunFor(1);  // lets the last frame reach the window
    const std::string path = (out / (page->name + ".png")).string();
    if (SaveFrame(game.backend, path)) {
      ++rendered;
      std::printf("%s\n", path.c_str());
    } else {
      ++failures;
    }
  }
  if (rendered == 0) {
    std::fprintf(stderr, "tour: no page rendered\n");
    return 1;
  }
  return failures == 0 ? 0 : 1;
}
