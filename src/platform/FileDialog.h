#pragma once
// The open-file and save-file dialogs of loading and saving. They are drawn inside the game
// window in the game's own look, over the game's frame dimmed: the saved games of the
// saves folder, newest first, a name field, OK and Cancel. Like the system dialogs they
// stand in for they are modal: the call returns when the player has chosen or cancelled.
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace platform {

enum class FileDialogKind { Open, Save };

// Shows the dialog over the frame that the window shows, dimmed (on a dark ground when
// the window shows none), and that frame again when it closes. Returns the chosen path:
// the saves folder's path of the name, or the typed path as given when it has a '/';
// std::nullopt when cancelled. While it is up, the window's other messages (paint, timer,
// activate, close) still go to the window procedure, input goes to the dialog only, and
// no frame of the game runs. An open dialog returns only a file that is there (a name
// typed without its ".gam" finds the saved game with it), and otherwise says "No such
// game" and stays; a save dialog returns the typed name as it is (the caller adds the
// extension). OK with an empty name does nothing.
std::optional<std::string> RunFileDialog(FileDialogKind kind, const std::string& title);

struct SavedGameFile {
  std::string fileName;   // as it is on the disk
  std::string shownName;  // in Windows-1252, as the list shows it and the name field takes it
  std::time_t modified = 0;
};

// The ".gam" files of the folder (the extension in any case) that can be read, newest
// first and, at equal times, by name. Empty for an empty, missing or unreadable folder.
std::vector<SavedGameFile> ListSavedGames(const std::string& folder);

// The name a save dialog proposes, so that a game can be saved without typing: "Quarnwick 1",
// "Quarnwick 2", ..., the first whose ".gam" file is not in the folder.
std::string NextFreeSaveName(const std::string& folder);

// The parts of the dialog that the pointer can be over.
enum class DialogPart { None, Row, ScrollUp, ScrollDown, Track, Thumb, NameField, Ok, Cancel };

// Everything the dialog shows.
struct FileDialogState {
  static constexpr int kNameCapacity = 127;  // characters in the name field

  FileDialogKind kind = FileDialogKind::Open;
  std::string title;
  std::string folder;  // empty when there is no saves folder
  std::vector<SavedGameFile> files;
  int selected = -1;  // index into files, or -1
  int firstRow = 0;   // index of the file in the list's top row
  std::string name;   // the name field, Windows-1252
  bool nameProposed = false;  // the field holds the save dialog's proposal, which typing replaces
  bool cursorShown = true;   // the blinking cursor at the end of the name
  bool noSuchGame = false;   // an open dialog was asked for a file that is not there
  DialogPart hovered = DialogPart::None;
  DialogPart pressed = DialogPart::None;  // held down with the left button
  bool pointerKnown = false;  // the pointer is drawn once it has moved over the window
  int pointerX = 0;
  int pointerY = 0;
};

// Tests and tools watch the dialog: the watcher is called with the state after each input
// that changed it (the one that closes the dialog included), and each time the dialog has
// put a frame on the screen. An empty function stops watching.
using FileDialogWatcher = std::function<void(const FileDialogState&)>;
void WatchFileDialogs(FileDialogWatcher watcher);

}  // namespace platform
