#include "platform/FileDialog.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <tuple>

#include "platform/Backend.h"
#include "platform/Cp1252.h"
#include "platform/FileDialogView.h"
#include "platform/FrameUploader.h"
#include "platform/Messages.h"
#include "platform/SavesFolder.h"
#include "platform/Window.h"

namespace platform {
namespace {

constexpr std::uint32_t kBlinkMs = 340;        // the cursor's half period, as the game's own fields blink
constexpr std::uint32_t kDoubleClickMs = 500;  // two presses on one file within this choose it
constexpr int kFrameWidth = 640;
constexpr int kFrameHeight = 480;

FileDialogWatcher& Watcher() {
  static FileDialogWatcher watcher;
  return watcher;
}

bool EndsWithGam(const std::string& name) {
  if (name.size() <= 4) return false;
  std::string end = name.substr(name.size() - 4);
  for (char& c : end) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return end == ".gam";
}

// A name as the list shows it: in the game's code page, with no line breaks or other
// control characters to upset the drawing.
std::string ShownName(const std::string& fileName) {
  std::string shown = Utf8ToCp1252(fileName);
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = '?';
  }
  return shown;
}

bool IsReadableFile(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && ::access(path.c_str(), R_OK) == 0;
}

bool IsInput(std::uint32_t message) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_SETCURSOR:
      return true;
    default:
      return false;
  }
}

// The dialog's behaviour: what each input does to its state, and when it is over.
class FileDialog {
 public:
  enum class Outcome { Open, Chosen, Cancelled };

  FileDialog(FileDialogKind kind, const std::string& title, const std::string& folder) {
    state.kind = kind;
    state.title = title;
    state.folder = folder;
    if (!folder.empty()) state.files = ListSavedGames(folder);
    if (kind == FileDialogKind::Save && !folder.empty()) {
      state.name = NextFreeSaveName(folder);
      state.nameProposed = true;
    }
  }

  const FileDialogState& State() const { return state; }
  FileDialogState& MutableState() { return state; }
  Outcome Result() const { return outcome; }
  const std::string& ChosenPath() const { return chosen; }

  // Handles one input message; true when the dialog looks different afterwards.
  bool Handle(const Message& m, std::uint32_t now) {
    const auto before = Look(state);
    switch (m.message) {
      case WM_KEYDOWN:
        Key(static_cast<std::uint32_t>(m.wParam));
        break;
      case WM_CHAR:
        Type(static_cast<unsigned char>(m.wParam));
        break;
      case WM_MOUSEMOVE:
        MovePointer(PointX(m.lParam), PointY(m.lParam));
        break;
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        MovePointer(PointX(m.lParam), PointY(m.lParam));
        Press(now, m.message == WM_LBUTTONDBLCLK);
        break;
      case WM_LBUTTONUP:
        MovePointer(PointX(m.lParam), PointY(m.lParam));
        Release();
        break;
      default:
        break;
    }
    return outcome != Outcome::Open || Look(state) != before;
  }

 private:
  // What input can change of the picture (the list of files stays as it is).
  using Appearance = std::tuple<int, int, std::string, bool, DialogPart, DialogPart, bool, int, int>;
  static Appearance Look(const FileDialogState& s) {
    return {s.selected, s.firstRow, s.name, s.noSuchGame, s.hovered, s.pressed, s.pointerKnown, s.pointerX,
            s.pointerY};
  }

  int Count() const { return static_cast<int>(state.files.size()); }
  int LastFirstRow() const { return std::max(0, Count() - FileDialogLayout::kVisibleRows); }

  void ScrollTo(int firstRow) { state.firstRow = std::clamp(firstRow, 0, LastFirstRow()); }

  // Selects a file, fills the name field with its name and brings it into sight.
  void Select(int index) {
    if (Count() == 0) return;
    index = std::clamp(index, 0, Count() - 1);
    state.selected = index;
    state.name = state.files[static_cast<std::size_t>(index)].shownName;
    state.nameProposed = false;
    state.noSuchGame = false;
    if (index < state.firstRow) ScrollTo(index);
    if (index >= state.firstRow + FileDialogLayout::kVisibleRows) ScrollTo(index - FileDialogLayout::kVisibleRows + 1);
  }

  void Key(std::uint32_t key) {
    const int page = FileDialogLayout::kVisibleRows - 1;
    const bool none = state.selected < 0;
    switch (key) {
      case VK_RETURN: Accept(); break;
      case VK_ESCAPE: outcome = Outcome::Cancelled; break;
      case VK_UP: Select(none ? 0 : state.selected - 1); break;
      case VK_DOWN: Select(none ? 0 : state.selected + 1); break;
      case VK_PRIOR: Select(none ? 0 : state.selected - page); break;
      case VK_NEXT: Select(none ? page : state.selected + page); break;
      case VK_HOME: Select(0); break;
      case VK_END: Select(Count() - 1); break;
      default: break;
    }
  }

  void Type(unsigned char c) {
    if (state.nameProposed && (c == 8 || (c >= 32 && c != 127))) {
      state.nameProposed = false;
      state.name.clear();  // typing replaces the proposal, Backspace takes it away
      if (c == 8) return;
    }
    if (c == 8) {
      if (!state.name.empty()) state.name.pop_back();
    } else if (c >= 32 && c != 127) {
      if (static_cast<int>(state.name.size()) >= FileDialogState::kNameCapacity) return;
      state.name += static_cast<char>(c);
    } else {
      return;  // Enter and Escape act on their key; other control characters are no text
    }
    state.noSuchGame = false;
    // A file stays chosen only while the field holds its name.
    if (state.selected >= 0 && state.files[static_cast<std::size_t>(state.selected)].shownName != state.name) {
      state.selected = -1;
    }
  }

  void MovePointer(int x, int y) {
    state.pointerKnown = true;
    state.pointerX = x;
    state.pointerY = y;
    state.hovered = FileDialogPartAt(state, x, y, nullptr);
    if (state.pressed == DialogPart::Thumb) DragThumb(y);
  }

  void DragThumb(int y) {
    const FileDialogLayout& L = kFileDialogLayout;
    const int travel = L.track.Height() - L.Thumb(Count(), 0).Height();
    if (travel <= 0) return;
    const int top = y - dragOffset - L.track.top;
    ScrollTo((top * LastFirstRow() + travel / 2) / travel);
  }

  void Press(std::uint32_t now, bool doubleClick) {
    int file = -1;
    const DialogPart part = FileDialogPartAt(state, state.pointerX, state.pointerY, &file);
    state.pressed = part;
    switch (part) {
      case DialogPart::Row: {
        const bool again = file == lastClickedFile && now - lastClickTime <= kDoubleClickMs;
        Select(file);
        if (doubleClick || again) {
          lastClickedFile = -1;
          Accept();
        } else {
          lastClickedFile = file;
          lastClickTime = now;
        }
        return;
      }
      case DialogPart::ScrollUp: ScrollTo(state.firstRow - 1); break;
      case DialogPart::ScrollDown: ScrollTo(state.firstRow + 1); break;
      case DialogPart::Track: {
        const Rect thumb = kFileDialogLayout.Thumb(Count(), state.firstRow);
        const int page = FileDialogLayout::kVisibleRows - 1;
        ScrollTo(state.pointerY < thumb.top ? state.firstRow - page : state.firstRow + page);
        break;
      }
      case DialogPart::Thumb:
        dragOffset = state.pointerY - kFileDialogLayout.Thumb(Count(), state.firstRow).top;
        break;
      default: break;
    }
    lastClickedFile = -1;
  }

  // A button acts when the press began and ends on it.
  void Release() {
    const DialogPart pressed = state.pressed;
    state.pressed = DialogPart::None;
    if (pressed == DialogPart::Ok && state.hovered == DialogPart::Ok) Accept();
    if (pressed == DialogPart::Cancel && state.hovered == DialogPart::Cancel) outcome = Outcome::Cancelled;
  }

  // The path that the name field stands for.
  std::string PathOfName() const {
    if (state.selected >= 0) {
      const SavedGameFile& file = state.files[static_cast<std::size_t>(state.selected)];
      if (file.shownName == state.name) return state.folder + "/" + file.fileName;
    }
    const std::string typed = Cp1252ToUtf8(state.name);
    if (typed.find('/') != std::string::npos || state.folder.empty()) return typed;
    return state.folder + "/" + typed;
  }

  void Accept() {
    if (state.name.empty()) return;
    std::string path = PathOfName();
    if (state.kind == FileDialogKind::Open && !IsReadableFile(path)) {
      // A saved game may be named without its extension.
      if (!EndsWithGam(path) && IsReadableFile(path + ".gam")) {
        path += ".gam";
      } else {
        state.noSuchGame = true;
        return;
      }
    }
    chosen = path;
    outcome = Outcome::Chosen;
  }

  FileDialogState state;
  Outcome outcome = Outcome::Open;
  std::string chosen;
  int lastClickedFile = -1;
  std::uint32_t lastClickTime = 0;
  int dragOffset = 0;
};

// What is still waiting of the key or click that opened the dialog belongs to it, not to
// the dialog: the Enter or space character of the menu key, and the release of the key
// or of the mouse button. A release tells where the pointer is.
void DropRestOfOpeningPress(FileDialogState& state) {
  Message m;
  while (PeekMessage(&m)) {
    const bool button = m.message == WM_LBUTTONUP || m.message == WM_RBUTTONUP;
    const bool rest = button || m.message == WM_KEYUP ||
                      (m.message == WM_CHAR && (m.wParam == VK_RETURN || m.wParam == VK_SPACE));
    if (!rest) return;
    GetMessage(&m);
    if (button) {
      state.pointerKnown = true;
      state.pointerX = PointX(m.lParam);
      state.pointerY = PointY(m.lParam);
      state.hovered = FileDialogPartAt(state, state.pointerX, state.pointerY, nullptr);
    }
  }
}

// The dialog closed on a key: its character and its release, when they are already
// waiting, go with it.
void DropRestOfClosingKey(std::uint32_t key) {
  Message m;
  while (PeekMessage(&m)) {
    const bool rest = (m.message == WM_CHAR && m.wParam == key && key == VK_RETURN) ||
                      (m.message == WM_KEYUP && m.wParam == key);
    if (!rest) return;
    GetMessage(&m);
  }
}

}  // namespace

void WatchFileDialogs(FileDialogWatcher watcher) { Watcher() = std::move(watcher); }

std::vector<SavedGameFile> ListSavedGames(const std::string& folder) {
  std::vector<SavedGameFile> files;
  if (folder.empty()) return files;
  std::error_code error;
  std::filesystem::directory_iterator it(folder, std::filesystem::directory_options::skip_permission_denied, error);
  for (; !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
    const std::string name = it->path().filename().string();
    if (!EndsWithGam(name)) continue;
    const std::string path = it->path().string();
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || ::access(path.c_str(), R_OK) != 0) continue;
    files.push_back({name, ShownName(name), info.st_mtime});
  }
  std::sort(files.begin(), files.end(), [](const SavedGameFile& a, const SavedGameFile& b) {
    if (a.modified != b.modified) return a.modified > b.modified;
    return a.fileName < b.fileName;
  });
  return files;
}

std::string NextFreeSaveName(const std::string& folder) {
  for (int n = 1;; ++n) {
    const std::string name = "Quarnwick " + std::to_string(n);
    std::error_code error;
    if (!std::filesystem::exists(std::filesystem::path(folder) / (name + ".gam"), error) || n >= 99999) return name;
  }
}

std::optional<std::string> RunFileDialog(FileDialogKind kind, const std::string& title) {
  if (Backend* backend = CurrentBackend()) {
    std::optional<std::string> answer;
    if (backend->ScriptedFileDialog(kind, title, &answer)) return answer;
  }
  if (!WindowExists()) return std::nullopt;

  FileDialog dialog(kind, title, SavesFolder());
  // The dialog stands over the frame that the window shows.
  const Surface* backdrop = WindowSurface();
  Surface ground(kFrameWidth, kFrameHeight);
  Surface frame(kFrameWidth, kFrameHeight);
  DrawFileDialogGround(backdrop, title, ground);
  DropRestOfOpeningPress(dialog.MutableState());

  auto show = [&] {
    frame.CopyFrom(0, 0, ground, ground.Bounds(), false);
    DrawFileDialogParts(dialog.State(), frame);
    ShowSurfaceNow(frame);
    if (Watcher()) Watcher()(dialog.State());
  };
  // The dialog is on the screen at once, before it looks at any input.
  show();

  const std::uint32_t opened = GetTickCount();
  bool redraw = false;
  std::uint32_t closingKey = 0;
  for (;;) {
    Message m;
    if (PeekMessage(&m)) {
      // Quitting ends the dialog as a cancel; the quit message stays for the game's loop.
      if (m.message == WM_QUIT) break;
      GetMessage(&m);
      if (IsInput(m.message)) {
        if (dialog.Handle(m, GetTickCount())) {
          redraw = true;
          if (Watcher()) Watcher()(dialog.State());
        }
        if (dialog.Result() != FileDialog::Outcome::Open) {
          if (m.message == WM_KEYDOWN) closingKey = static_cast<std::uint32_t>(m.wParam);
          break;
        }
      } else {
        DispatchMessage(m);
        if (!WindowExists()) break;
        if (m.message == WM_PAINT) {
          // The dialog covers the window, and it is what gets painted.
          ValidateRect(kMainWindow);
          redraw = true;
        }
      }
      continue;
    }
    // The cursor blinks while nothing else happens.
    const std::uint32_t sinceOpened = GetTickCount() - opened;
    const bool cursor = (sinceOpened / kBlinkMs) % 2 == 0;
    if (cursor != dialog.State().cursorShown) {
      dialog.MutableState().cursorShown = cursor;
      redraw = true;
    }
    if (redraw) {
      show();
      redraw = false;
    }
    std::uint32_t wait = kBlinkMs - sinceOpened % kBlinkMs;
    wait = std::min(wait, MillisecondsToNextTimer());
    WaitForInput(wait);
  }

  if (closingKey != 0) DropRestOfClosingKey(closingKey);
  // The game's frame comes back as it was.
  if (WindowExists()) {
    if (const Surface* shown = WindowSurface()) ShowSurfaceNow(*shown);
    else InvalidateRect(kMainWindow);
  }
  if (dialog.Result() == FileDialog::Outcome::Chosen) return dialog.ChosenPath();
  return std::nullopt;
}

}  // namespace platform
