// Tour pages of the load and save dialogs: the open dialog over the main menu and the save
// dialog over the world map, each with a few saved games listed and one of them chosen.
// The saved games are made for the page in a folder of its own. The dialog is modal, so
// the page draws the state it shows with the dialog's own drawing and lets the window
// show that frame.
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "ShowcaseParty.h"
#include "Tour.h"
#include "creatures/PlayerRecord.h"
#include "platform/FileDialog.h"
#include "platform/FileDialogView.h"
#include "platform/FrameUploader.h"
#include "platform/SavesFolder.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "world/WorldMapScreen.h"
#include "shell/Globals.h"

namespace {

namespace fs = std::filesystem;

// The saved games of the page and how long before a fixed evening each was written.
struct Save {
  const char* name;
  std::time_t age;
};

constexpr std::time_t kEvening = 1773513000;  // the same pictures every run

// Makes the saved games in a data folder of the page's own, lists them as the dialog
// would, and removes them again.
std::vector<platform::SavedGameFile> SavedGames(const std::vector<Save>& saves, std::string* folder) {
  const fs::path home = fs::temp_directory_path() / ("quarnwick-tour-dialogs-" + std::to_string(::getpid()));
  std::optional<std::string> before;
  if (const char* old = std::getenv("XDG_DATA_HOME")) before = old;
  setenv("XDG_DATA_HOME", home.c_str(), 1);
  *folder = platform::SavesFolder();
  for (const Save& save : saves) {
    const fs::path path = fs::path(*folder) / save.name;
    std::ofstream(path) << "76 293\n";
    const auto when = std::chrono::system_clock::from_time_t(kEvening - save.age);
    fs::last_write_time(path, fs::file_time_type::clock::from_sys(when));
  }
  std::vector<platform::SavedGameFile> files = platform::ListSavedGames(*folder);
  std::error_code ignored;
  fs::remove_all(home, ignored);
  if (before) setenv("XDG_DATA_HOME", before->c_str(), 1);
  else unsetenv("XDG_DATA_HOME");
  return files;
}

// The frame the window shows instead of the game's while the page's dialog is up.
platform::Surface& DialogFrame() {
  static platform::Surface frame(640, 480);
  return frame;
}

void ShowDialog(TourGame& game, const platform::FileDialogState& state) {
  platform::Surface& frame = DialogFrame();
  platform::DrawFileDialog(state, game.application.display.DrawTarget(), frame);
  platform::SetWindowSurface(&frame);
}

TourPage load("dialog-load", [] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); }, [](TourGame& game) {
  game.backend.MouseMove(330, 325);  // on "Load Game"
  game.RunFor(2000);
  platform::FileDialogState state;
  state.kind = platform::FileDialogKind::Open;
  state.title = "Load Game";
  state.files = SavedGames({{"before the storm tower.gam", 1800},
                            {"quarnwick.gam", 3 * 3600},
                            {"marsh catch.gam", 26 * 3600},
                            {"first steps.gam", 4 * 86400},
                            {"test.gam", 40 * 86400}},
                           &state.folder);
  state.selected = 1;
  state.name = state.files[1].shownName;
  const platform::Rect row = platform::kFileDialogLayout.Row(1);
  state.pointerKnown = true;
  state.pointerX = row.left + 120;
  state.pointerY = row.top + 9;
  state.hovered = platform::DialogPart::Row;
  ShowDialog(game, state);
});

TourPage save("dialog-save", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  return new WorldMapScreen(1, "MAP_MODE");
}, [](TourGame& game) {
  game.backend.MouseMove(300, 200);  // the game's pointer, still under the dialog
  game.RunFor(1000);
  platform::FileDialogState state;
  state.kind = platform::FileDialogKind::Save;
  state.title = "Save Game";
  std::vector<Save> saves{{"before the storm tower.gam", 1800}, {"quarnwick.gam", 3 * 3600},
                          {"marsh catch.gam", 26 * 3600},       {"six kindrels.gam", 2 * 86400},
                          {"earth wizard beaten.gam", 3 * 86400}, {"first steps.gam", 4 * 86400},
                          {"a very long name for a saved game, far too long for its row.gam", 9 * 86400},
                          {"old.gam", 30 * 86400},               {"older.gam", 31 * 86400},
                          {"oldest.gam", 32 * 86400},            {"test.gam", 40 * 86400}};
  state.files = SavedGames(saves, &state.folder);
  state.selected = 2;
  state.firstRow = 1;
  state.name = state.files[2].shownName;
  const platform::Rect ok = platform::kFileDialogLayout.ok;
  state.pointerKnown = true;
  state.pointerX = ok.right - 30;
  state.pointerY = (ok.top + ok.bottom) / 2;
  state.hovered = platform::DialogPart::Ok;
  ShowDialog(game, state);
});

}  // namespace
