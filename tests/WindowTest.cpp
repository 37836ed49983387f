// The game's window on the headless backend: the message queue (the order in which
// messages come, paint and timer messages made only when nothing else waits, destroy and
// quit, device input arriving on time, and what of a frame is sent to the screen); and the
// load and save dialogs drawn inside it (the saves folder made on demand, the saved games
// listed newest first, choosing with the keyboard and the mouse, typing a name, cancelling,
// modality, and the panel drawn over the dimmed frame; scripted answers serve the menu
// tests).
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <vector>

#include <sys/stat.h>

#include "platform/FileDialog.h"
#include "platform/FileDialogView.h"
#include "platform/FrameUploader.h"
#include "platform/HeadlessBackend.h"
#include "platform/SavesFolder.h"
#include "platform/Surface.h"
#include "platform/Window.h"
#include "support/TestData.h"

using namespace platform;
namespace fs = std::filesystem;

namespace {

std::vector<Message> received;
bool validatePaint = true;

LResult Recorder(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  received.push_back({window, message, wParam, lParam});
  if (message == WM_PAINT && !validatePaint) return 0;
  return DefWindowProc(window, message, wParam, lParam);
}

class MessageQueueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    received.clear();
    validatePaint = true;
    InstallBackend(&backend);
    SetWindowProcedure(Recorder);
    ASSERT_NE(CreateMainWindow("Quarnwick", 640, 480, true), 0u);
  }
  void TearDown() override { InstallBackend(nullptr); }
  // Takes every waiting message through the window procedure; returns their codes.
  std::vector<std::uint32_t> Drain(int limit = 20) {
    std::vector<std::uint32_t> codes;
    Message m;
    while (limit-- > 0 && PeekMessage(&m)) {
      if (!GetMessage(&m)) {
        codes.push_back(WM_QUIT);
        break;
      }
      codes.push_back(m.message);
      DispatchMessage(m);
    }
    return codes;
  }
  HeadlessBackend backend;
};

TEST_F(MessageQueueTest, PostedFirstThenOnePaintThenTimers) {
  ASSERT_EQ(received.size(), 1u);
  EXPECT_EQ(received[0].message, WM_ACTIVATE) << "a new window is activated";

  SetTimer(kMainWindow, 1, 0);
  InvalidateRect(kMainWindow);
  PostMessage(kMainWindow, WM_KEYDOWN, 'A', 0);
  InvalidateRect(kMainWindow);
  PostMessage(kMainWindow, WM_CHAR, 'a', 0);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_CHAR, WM_PAINT}));

  // The shortest timer interval is 10 ms.
  backend.Advance(9);
  EXPECT_TRUE(Drain().empty());
  backend.Advance(1);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_TIMER}));
  EXPECT_EQ(MillisecondsToNextTimer(), 10u);
  KillTimer(kMainWindow, 1);
  backend.Advance(50);
  EXPECT_TRUE(Drain().empty());

  // A paint that is not validated keeps coming, but never ahead of posted messages.
  validatePaint = false;
  InvalidateRect(kMainWindow);
  EXPECT_EQ(Drain(3), (std::vector<std::uint32_t>{WM_PAINT, WM_PAINT, WM_PAINT}));
  PostMessage(kMainWindow, WM_KEYDOWN, 'B', 0);
  EXPECT_EQ(Drain(2), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_PAINT}));
  ValidateRect(kMainWindow);
  EXPECT_TRUE(Drain().empty());
}

TEST_F(MessageQueueTest, CloseDestroysAndQuitEndsTheQueue) {
  received.clear();
  PostMessage(kMainWindow, WM_CLOSE, 0, 0);
  Drain(1);
  ASSERT_EQ(received.size(), 2u);
  EXPECT_EQ(received[1].message, WM_DESTROY) << "closing destroys at once";
  EXPECT_TRUE(!WindowExists() && !backend.WindowOpen());
  EXPECT_FALSE(PostMessage(kMainWindow, WM_CHAR, 'x', 0)) << "nothing reaches a destroyed window";
  EXPECT_FALSE(DestroyWindow(kMainWindow));

  PostQuitMessage(3);
  Message m;
  ASSERT_TRUE(PeekMessage(&m));
  EXPECT_EQ(m.message, WM_QUIT);
  EXPECT_FALSE(GetMessage(&m));
  EXPECT_EQ(m.wParam, 3u);
  EXPECT_FALSE(PeekMessage(&m));
}

TEST_F(MessageQueueTest, DeviceInputArrivesOnTime) {
  // Input comes when it is due (what each press and click sends, every other test relies on).
  backend.KeyPress(VK_RETURN, 20);
  EXPECT_TRUE(Drain().empty()) << "nothing is due yet";
  backend.Advance(20);
  EXPECT_EQ(Drain(), (std::vector<std::uint32_t>{WM_KEYDOWN, WM_CHAR, WM_KEYUP}));

  // Points off the frame keep their sign.
  const LParam packed = PackPoint(-5, -300);
  EXPECT_EQ(std::tuple(PointX(packed), PointY(packed)), std::tuple(-5, -300));

  // Waiting for input jumps the clock to the input, never past the timeout.
  const std::uint32_t start = GetTickCount();
  backend.KeyPress('Z', 30);
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 30u);
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 30u) << "input is waiting: no wait";
  Drain();
  WaitForInput(100);
  EXPECT_EQ(GetTickCount() - start, 130u);
}

TEST_F(MessageQueueTest, AFrameIsSentOnlyWhereItDiffersFromTheScreen) {
  Surface frame(640, 480);
  frame.Fill(frame.Bounds(), 0x0841);
  SetWindowSurface(&frame);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 1);
  EXPECT_EQ(backend.LastChanges(), std::vector<Rect>{frame.Bounds()}) << "the first frame is sent whole";
  // Drawn again the same: not sent.
  frame.Fill(frame.Bounds(), 0x0841);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 1);
  // Two small changes: their bands of rows, from the first to the last changed column.
  frame.Fill({100, 20, 110, 21}, 0xFFFF);
  frame.Fill({300, 30, 301, 31}, 0xFFFF);
  frame.Fill({5, 470, 6, 472}, 0x1234);
  RefreshWindow();
  EXPECT_EQ(backend.FramesShown(), 2);
  EXPECT_EQ(backend.LastChanges(), (std::vector<Rect>{{100, 16, 301, 32}, {5, 464, 6, 480}}));
  EXPECT_EQ(backend.LastFrame()[470 * 640 + 5], 0x1234);
  // Back to the first picture: the same parts again.
  frame.Fill(frame.Bounds(), 0x0841);
  RefreshWindow();
  EXPECT_EQ(backend.LastChanges(), (std::vector<Rect>{{100, 16, 301, 32}, {5, 464, 6, 480}}));
  // A frame shown at once goes out even unchanged, with nothing marked as changed.
  ShowSurfaceNow(frame);
  EXPECT_EQ(std::tuple(backend.FramesShown(), backend.LastChanges().size()), std::tuple(4, 0u));
  SetWindowSurface(nullptr);
}

// An environment variable set for one test and put back after it.
struct ScopedEnv {
  ScopedEnv(const char* name, const std::optional<std::string>& value) : key(name) {
    if (const char* old = std::getenv(name)) before = old;
    Set(value);
  }
  ~ScopedEnv() { Set(before); }
  void Set(const std::optional<std::string>& value) {
    value ? setenv(key.c_str(), value->c_str(), 1) : unsetenv(key.c_str());
  }
  std::string key;
  std::optional<std::string> before;
};

constexpr std::time_t kNoon = 1773489600;  // a fixed day, so that the order never depends on the clock

Rect Middle(const Rect& r) { return {(r.left + r.right) / 2, (r.top + r.bottom) / 2, 0, 0}; }

// The window of the message queue's tests, with a game frame behind the dialogs.
class FileDialogTest : public MessageQueueTest {
 protected:
  void SetUp() override {
    dataHome.emplace("XDG_DATA_HOME", (root / "data").string());
    saves = (root / "data" / "quarnwick" / "saves").string();
    MessageQueueTest::SetUp();
    gameFrame.Fill(gameFrame.Bounds(), kGameColour);
    SetWindowSurface(&gameFrame);
    RefreshWindow();
    WatchFileDialogs([this](const FileDialogState& state) {
      seen.push_back(state);
      lastDialogFrame = backend.LastFrame();
    });
  }
  void TearDown() override {
    WatchFileDialogs({});
    SetWindowSurface(nullptr);
    MessageQueueTest::TearDown();
    dataHome.reset();
  }

  // A saved game in the saves folder, last written `age` seconds before the fixed noon.
  std::string MakeSave(const std::string& name, std::time_t age) {
    fs::create_directories(saves);
    const fs::path path = fs::path(saves) / name;
    std::ofstream(path) << "12 34\n";
    const auto when = std::chrono::system_clock::from_time_t(kNoon - age);
    fs::last_write_time(path, fs::file_time_type::clock::from_sys(when));
    return path.string();
  }

  std::vector<std::string> ListedNames() const {
    std::vector<std::string> names;
    if (seen.empty()) return names;
    for (const SavedGameFile& file : seen.back().files) names.push_back(file.fileName);
    return names;
  }

  void Keys(std::initializer_list<std::uint32_t> keys) {
    for (std::uint32_t key : keys) backend.KeyPress(key);
  }
  void ClickOn(const Rect& r, std::uint32_t delayMs = 0) { backend.LeftClick(Middle(r).left, Middle(r).top, delayMs); }
  // Types the text and presses the keys, then runs the dialog, which meets them as they come.
  std::optional<std::string> Run(FileDialogKind kind, std::initializer_list<std::uint32_t> keys,
                                 const std::string& typed) {
    backend.TypeText(typed);
    Keys(keys);
    return RunFileDialog(kind, kind == FileDialogKind::Open ? "Load Game" : "Save Game");
  }
  std::optional<std::string> Open(std::initializer_list<std::uint32_t> keys = {}, const std::string& typed = "") {
    return Run(FileDialogKind::Open, keys, typed);
  }
  std::optional<std::string> Save(std::initializer_list<std::uint32_t> keys = {}, const std::string& typed = "") {
    return Run(FileDialogKind::Save, keys, typed);
  }
  std::string In(const std::string& name) const { return saves + "/" + name; }

  std::uint16_t DialogPixel(int x, int y) const { return lastDialogFrame[static_cast<std::size_t>(y) * 640 + x]; }

  static constexpr std::uint16_t kGameColour = Rgb565(200, 120, 40);
  const FileDialogLayout& layout = kFileDialogLayout;
  TempFolder root{"dialogs"};
  std::string saves;
  std::optional<ScopedEnv> dataHome;
  Surface gameFrame{640, 480};
  std::vector<FileDialogState> seen;
  std::vector<std::uint16_t> lastDialogFrame;
};

TEST_F(FileDialogTest, SavesFolderIsMadeOnDemandWhereTheDesktopKeepsData) {
  const std::string fromDataHome = SavesFolder();
  EXPECT_EQ(fromDataHome, (root / "data" / "quarnwick" / "saves").string());
  EXPECT_TRUE(fs::is_directory(fromDataHome)) << "made with its parents";
  EXPECT_EQ(SavesFolder(), fromDataHome) << "asking again finds it";

  // Without a data home (or with a relative one, which does not count) it lies in the home folder.
  const ScopedEnv home("HOME", (root / "home").string());
  for (const std::optional<std::string>& value : {std::optional<std::string>{}, std::optional<std::string>{"relative/data"}}) {
    const ScopedEnv noDataHome("XDG_DATA_HOME", value);
    const std::string fromHome = SavesFolder();
    EXPECT_EQ(fromHome, (root / "home" / ".local" / "share" / "quarnwick" / "saves").string());
    EXPECT_TRUE(fs::is_directory(fromHome));
  }
  EXPECT_FALSE(fs::exists("relative")) << "a relative data home is never made";

  // A place where no folder can be made gives none; typed paths still work, a bare name
  // in the current folder.
  std::ofstream(root / "plain-file") << "x";
  const ScopedEnv blocked("XDG_DATA_HOME", (root / "plain-file").string());
  EXPECT_EQ(SavesFolder(), "");
  for (const char* path : {"/elsewhere/my-game", "bare"}) {
    EXPECT_EQ(Save({VK_RETURN}, path), path);
    EXPECT_EQ(std::tuple(seen.back().files.size(), seen.back().folder), std::tuple(0u, ""));
  }
}

TEST_F(FileDialogTest, ListsTheReadableSavedGamesNewestFirst) {
  // alpha.gam is as old as MIDDLE.GAM: by name, capitals first.
  for (const auto& [name, age] : {std::pair{"old.gam", 3 * 86400}, {"newest.gam", 3600}, {"MIDDLE.GAM", 86400},
                                  {"alpha.gam", 86400}, {"notes.txt", 60}, {"gam", 60}})
    MakeSave(name, age);
  fs::create_directories(fs::path(saves) / "folder.gam");
  const std::string locked = MakeSave("locked.gam", 60);
  ::chmod(locked.c_str(), 0);
  const bool lockedIsUnreadable = ::access(locked.c_str(), R_OK) != 0;  // not so for the superuser

  EXPECT_EQ(Open({VK_ESCAPE}), std::nullopt);
  ASSERT_FALSE(seen.empty()) << "the dialog showed itself";
  EXPECT_EQ(std::tuple(seen.back().title, seen.back().folder), std::tuple("Load Game", saves));
  std::vector<std::string> expected{"newest.gam", "MIDDLE.GAM", "alpha.gam", "old.gam"};
  if (!lockedIsUnreadable) expected.insert(expected.begin(), "locked.gam");
  EXPECT_EQ(ListedNames(), expected);
  EXPECT_EQ(std::tuple(seen.back().selected, seen.back().name), std::tuple(-1, "")) << "nothing chosen yet";
}

TEST_F(FileDialogTest, KeysAndTheMouseChooseAFileOrLeaveWithout) {
  for (int i = 0; const char* name : {"first.gam", "second.gam", "third.gam"}) MakeSave(name, 10 * ++i);
  EXPECT_EQ(Open({VK_DOWN, VK_DOWN, VK_DOWN, VK_UP, VK_RETURN}), In("second.gam"));
  EXPECT_EQ(seen.back().name, "second.gam") << "moving in the list fills the name field";

  // The rest of the closing key does not reach the game afterwards.
  received.clear();
  Message m;
  while (PeekMessage(&m) && GetMessage(&m)) DispatchMessage(m);
  for (const Message& r : received) EXPECT_FALSE(r.message == WM_CHAR && r.wParam == VK_RETURN);

  // Home and End reach the ends of the list, and the list keeps to its ends.
  EXPECT_EQ(Save({VK_END, VK_DOWN, VK_RETURN}), In("third.gam"));
  EXPECT_EQ(Save({VK_HOME, VK_UP, VK_RETURN}), In("first.gam"));

  // Escape and Cancel leave with nothing, whatever was chosen or typed.
  Keys({VK_DOWN});
  EXPECT_EQ(Save({VK_ESCAPE}, "more"), std::nullopt);
  Keys({VK_DOWN});
  ClickOn(layout.cancel);
  EXPECT_EQ(Open(), std::nullopt);
  EXPECT_TRUE(fs::exists(In("first.gam")));

  // The mouse chooses a file, then OK, or with a double click.
  ClickOn(layout.Row(1));
  ClickOn(layout.ok);
  EXPECT_EQ(Open(), In("second.gam"));
  ClickOn(layout.Row(2));
  ClickOn(layout.Row(2), 100);
  EXPECT_EQ(Open(), In("third.gam"));

  // Two clicks far apart in time are two single clicks; a press that leaves OK before the
  // release does not press it.
  ClickOn(layout.Row(2));
  ClickOn(layout.Row(2), 2000);
  const Rect ok = Middle(layout.ok);
  backend.Queue(WM_LBUTTONDOWN, MK_LBUTTON, PackPoint(ok.left, ok.top));
  backend.MouseMove(20, 20);
  backend.Queue(WM_LBUTTONUP, 0, PackPoint(20, 20));
  EXPECT_EQ(Open({VK_ESCAPE}), std::nullopt);
  EXPECT_EQ(seen.back().selected, 2);

  // A click below the last file chooses nothing.
  ClickOn(layout.Row(5));
  EXPECT_EQ(Open({VK_ESCAPE}), std::nullopt);
  EXPECT_EQ(seen.back().selected, -1);
}

TEST_F(FileDialogTest, TypedNamesArePathsInTheSavesFolderOrAsGiven) {
  EXPECT_EQ(Save({VK_BACK, VK_RETURN}, "quest1x"), In("quest1")) << "the caller adds the extension";
  for (const std::string path : {"/somewhere/else/game.txt", "relative/game"}) EXPECT_EQ(Save({VK_RETURN}, path), path);

  // Typing is in the game's code page; the path is the file system's.
  EXPECT_EQ(Save({VK_RETURN}, "caf\xE9"), In("caf\xC3\xA9"));

  // Control characters are no text; Backspace on an empty field does nothing.
  Keys({VK_BACK});
  EXPECT_EQ(Save({VK_ESCAPE}, "a\tb\x7F"), std::nullopt);
  EXPECT_EQ(seen.back().name, "ab");

  // The field holds as much as the game's name buffer.
  EXPECT_EQ(Save({VK_RETURN}, std::string(200, 'z')), In(std::string(FileDialogState::kNameCapacity, 'z')));

  // Typing over a chosen file returns the typed name; the file is no longer chosen.
  MakeSave("dragon.gam", 10);
  Keys({VK_DOWN, VK_BACK, VK_BACK, VK_BACK, VK_BACK});
  EXPECT_EQ(Save({VK_RETURN}, "s"), In("dragons"));
  EXPECT_EQ(seen.back().selected, -1);
}

// A game can be saved without typing: the save dialog proposes the next free name, which
// typing replaces and Backspace takes away; the load dialog proposes nothing.
TEST_F(FileDialogTest, TheSaveDialogProposesTheNextFreeName) {
  EXPECT_EQ(Save({VK_RETURN}), In("Quarnwick 1"));
  MakeSave("Quarnwick 1.gam", 10);
  MakeSave("Quarnwick 2.gam", 5);
  EXPECT_EQ(Save({VK_RETURN}), In("Quarnwick 3"));
  EXPECT_EQ(Save({VK_RETURN}, "mine"), In("mine"));
  EXPECT_EQ(Save({VK_BACK, VK_RETURN, VK_ESCAPE}), std::nullopt) << "an empty name saves nothing";
  EXPECT_EQ(Open({VK_ESCAPE}), std::nullopt);
  EXPECT_EQ(std::pair(seen.back().name, seen.back().nameProposed), std::pair(std::string(), false));
}

TEST_F(FileDialogTest, OkWithoutAGameToOpenStaysUp) {
  MakeSave("castle.gam", 10);
  // An empty name does nothing (Backspace takes the proposed one away): the dialog is still
  // there to take the name typed after.
  Keys({VK_BACK, VK_RETURN});
  ClickOn(layout.ok);
  EXPECT_EQ(Save({VK_RETURN}, "later"), In("later"));

  // A name that is no file says so and stays.
  seen.clear();
  EXPECT_EQ(Open({VK_RETURN, VK_ESCAPE}, "nothere"), std::nullopt);
  ASSERT_FALSE(seen.empty());
  EXPECT_TRUE(seen.back().noSuchGame);

  // The saved game may be named without its extension.
  EXPECT_EQ(Open({VK_RETURN}, "castle"), In("castle.gam"));
  const std::string elsewhere = (root / "elsewhere.gam").string();
  std::ofstream(elsewhere) << "1 2\n";
  EXPECT_EQ(Open({VK_RETURN}, elsewhere), elsewhere);
}

TEST_F(FileDialogTest, ManyFilesScrollWithKeysArrowsAndTheBar) {
  for (int i = 0; i < 20; ++i) MakeSave("game" + std::to_string(100 + i) + ".gam", i * 60);  // game100 newest
  const int rows = FileDialogLayout::kVisibleRows;
  auto game = [](int n) { return "game" + std::to_string(100 + n) + ".gam"; };

  EXPECT_EQ(Open({VK_END, VK_RETURN}), In(game(19)));
  EXPECT_EQ(seen.back().firstRow, 20 - rows) << "the chosen file is in sight";
  // From nothing: the bottom of the first page, then a page on.
  EXPECT_EQ(Open({VK_NEXT, VK_NEXT, VK_RETURN}), In(game(2 * (rows - 1))));

  // The arrows move the list a row, the track a page; the choice stays.
  ClickOn(layout.scrollDown);
  ClickOn(layout.scrollDown, 600);
  Open({VK_ESCAPE});
  EXPECT_EQ(std::tuple(seen.back().firstRow, seen.back().selected), std::tuple(2, -1));
  backend.LeftClick(layout.scrollDown.left + 5, layout.track.bottom - 3);
  ClickOn(layout.scrollUp, 600);
  // A click on the first row now chooses the file shown there.
  ClickOn(layout.Row(0), 600);
  ClickOn(layout.ok);
  EXPECT_EQ(Open(), In(game(rows - 2)));

  // Dragging the thumb to the bottom shows the end of the list.
  const Rect thumb = layout.Thumb(20, 0);
  const int grabX = (thumb.left + thumb.right) / 2, grabY = thumb.top + 3;
  backend.MouseMove(grabX, grabY);
  backend.Queue(WM_LBUTTONDOWN, MK_LBUTTON, PackPoint(grabX, grabY));
  backend.MouseMove(grabX, layout.track.bottom + 40);
  backend.Queue(WM_LBUTTONUP, 0, PackPoint(grabX, layout.track.bottom + 40));
  Open({VK_ESCAPE});
  EXPECT_EQ(seen.back().firstRow, 20 - rows);
}

TEST_F(FileDialogTest, NamesAreShownInTheGameCodePageAndReturnedAsOnDisk) {
  MakeSave("Drachenh\xC3\xB6hle.gam", 10);
  const std::string longName = std::string(120, 'w') + ".gam";
  MakeSave(longName, 20);

  EXPECT_EQ(Open({VK_DOWN, VK_RETURN}), In("Drachenh\xC3\xB6hle.gam"));
  EXPECT_EQ(seen.back().name, "Drachenh\xF6hle.gam");

  EXPECT_EQ(Open({VK_END, VK_RETURN}), In(longName));
  // A name too long for its row is cut short of the date: between the two the row has a gap
  // with no text, where the whole name would run on into the date.
  const Rect row = layout.Row(1);
  int widestGap = 0, gap = 0;
  for (int x = row.left + 100; x < row.right - 40; ++x) {
    bool text = false;
    for (int y = row.top + 2; y < row.bottom - 2; ++y) text |= Green8(DialogPixel(x, y)) > 150;
    gap = text ? 0 : gap + 1;
    widestGap = std::max(widestGap, gap);
  }
  EXPECT_GE(widestGap, 8);
}

TEST_F(FileDialogTest, ModalTheWindowGetsItsTimersAndPaintsButNoInput) {
  SetTimer(kMainWindow, 1, 10);
  InvalidateRect(kMainWindow);
  received.clear();
  // What is left of the press that opened the dialog goes with it.
  backend.Queue(WM_CHAR, ' ', 1);
  backend.Queue(WM_LBUTTONUP, 0, PackPoint(300, 300));
  backend.TypeText("slow", 200);  // delays count from now
  backend.KeyPress(VK_DOWN, 400);
  backend.LeftClick(5, 5, 600);
  backend.KeyPress(VK_RETURN, 800);
  const std::uint32_t start = GetTickCount();
  EXPECT_EQ(Save(), In("slow"));
  EXPECT_GE(GetTickCount() - start, 800u) << "the dialog waited for the input to come";

  int timers = 0, paints = 0;
  for (const Message& m : received) {
    const bool input = (m.message >= WM_KEYDOWN && m.message <= WM_CHAR) ||
                       (m.message >= WM_MOUSEMOVE && m.message <= WM_RBUTTONUP);
    EXPECT_FALSE(input) << "input went to the window: " << m.message;
    timers += m.message == WM_TIMER;
    paints += m.message == WM_PAINT;
  }
  EXPECT_GE(timers, 30) << "timer messages keep coming while the dialog is up";
  EXPECT_EQ(paints, 1);
  EXPECT_EQ(seen.front().name, "Quarnwick 1") << "the space of the opening key is not typed";
  EXPECT_EQ(std::tuple(seen.front().pointerKnown, seen.front().pointerX), std::tuple(true, 300))
      << "the release of the opening click tells where the pointer is";
  // The cursor blinked meanwhile.
  bool on = false, off = false;
  for (const FileDialogState& state : seen) (state.cursorShown ? on : off) = true;
  EXPECT_TRUE(on && off);
}

TEST_F(FileDialogTest, ClosingTheWindowEndsTheDialog) {
  backend.TypeText("unsaved");
  backend.Queue(WM_CLOSE, 0, 0);
  EXPECT_EQ(Save(), std::nullopt);
  EXPECT_FALSE(WindowExists());
  EXPECT_EQ(Save(), std::nullopt) << "no window, no dialog";
}

TEST_F(FileDialogTest, ThePanelStandsOverTheDimmedFrameWhichComesBackAfter) {
  MakeSave("pixels.gam", 10);
  Keys({VK_DOWN});
  backend.KeyPress(VK_ESCAPE, 100);  // the queue runs dry in between: the choice is drawn
  Open();
  ASSERT_EQ(lastDialogFrame.size(), 640u * 480u);

  // Around the panel: the game's frame, darker but still its own colour.
  for (const auto& [x, y] : {std::pair{4, 4}, {635, 475}, {40, 240}, {600, 30}}) {
    const std::uint16_t p = DialogPixel(x, y);
    EXPECT_LT(Red8(p), 200 * 3 / 4) << x << "," << y;
    EXPECT_GT(Red8(p), 200 / 5);
    EXPECT_GT(Red8(p), Green8(p));
    EXPECT_GT(Green8(p), Blue8(p) / 2);
  }
  // The chosen row is lit green somewhere along its name.
  const Rect row = layout.Row(0);
  int green = 0;
  for (int y = row.top; y < row.bottom; ++y) {
    for (int x = row.left; x < row.left + 120; ++x) {
      const std::uint16_t p = DialogPixel(x, y);
      green += Green8(p) > 200 && Red8(p) < 160;
    }
  }
  EXPECT_GT(green, 10);

  // Once closed, the game's own frame is on the screen again.
  const auto& shown = backend.LastFrame();
  ASSERT_EQ(shown.size(), 640u * 480u);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kGameColour), 640 * 480);
}

}  // namespace
