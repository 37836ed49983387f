// The application shell on the headless backend: the screen stack and its requests, the
// shortcuts every screen shares, the frame clock, start-up failures and shutdown.
#include <algorithm>
#include <map>

#include "shell/CommandLine.h"
#include "shell/ScreenObject.h"
#include "shell/TextFormat.h"
#include "support/HeadlessGame.h"
#include "ui/MousePointer.h"

using platform::VK_F11;
using platform::VK_F12;

namespace {

constexpr std::uint32_t kKeyM = 0x4D;

// Each screen answers one key with one request.
struct Requests {
  std::uint32_t key;
  std::int32_t state;
  const char* next;  // the pending screen's name, or null
};

class StackTest : public ::testing::Test {
 protected:
  // A probe screen that carries out the requests bound to its keys.
  ProbeScreen* Make(const char* name, std::vector<Requests> requests = {}) {
    auto* screen = new ProbeScreen(name, &log);
    screen->onMessage = [this, screen, requests](std::uint32_t message, WParam wParam, LParam) {
      if (message != platform::WM_KEYDOWN) return;
      for (const Requests& r : requests) {
        if (r.key != wParam) continue;
        pendingScreen = r.next ? Make(r.next, bound[r.next]) : nullptr;
        screen->state = r.state;
      }
    };
    return screen;
  }
  void Start(const char* first) {
    game = std::make_unique<HeadlessGame>([this, first] { return Make(first, bound[first]); });
    ASSERT_EQ(game->started, 1);
  }
  void Press(std::uint32_t key) { game->Key(key, 50); }

  std::vector<std::string> log;
  std::map<std::string, std::vector<Requests>> bound;
  std::unique_ptr<HeadlessGame> game;
};

TEST_F(StackTest, PushLeaveAndReplaceActivateOnlyTheNewTopAndShutdownDeletesTopFirst) {
  bound["A"] = {{'P', kStatePush, "B"}, {'R', kStateLeave, "C"}};
  bound["B"] = {{'L', kStateLeave, nullptr}};
  bound["C"] = {{'P', kStatePush, "B"}};
  Start("A");
  auto* a = static_cast<ProbeScreen*>(currentScreen);
  EXPECT_EQ(log, (std::vector<std::string>{"A activate"}));

  Press('P');
  EXPECT_STREQ(currentScreen->GetName(), "B");
  EXPECT_EQ(a->state, kStatePush) << "a screen pushed down keeps its request until it is on top again";
  Press('L');
  EXPECT_EQ(currentScreen, a);
  EXPECT_EQ(a->state, kStateNone);
  Press('R');
  EXPECT_STREQ(currentScreen->GetName(), "C");
  EXPECT_EQ(log, (std::vector<std::string>{"A activate", "A deactivate", "B activate", "B deactivate",
                                           "B delete", "A activate", "A deactivate", "A delete",
                                           "C activate"}));
  EXPECT_TRUE(game->backend.MessageBoxes().empty());
  EXPECT_FALSE(game->application->Ended());

  // Shutdown deactivates the top and deletes every screen, the top first.
  Press('P');
  log.clear();
  game->ShutDown();
  EXPECT_EQ(log, (std::vector<std::string>{"B deactivate", "B delete", "C delete"}));
  EXPECT_EQ(theMousePointer, nullptr);
}

TEST_F(StackTest, RequestsWithoutAScreenAreFatal) {
  // A push with nothing to push, and the last screen leaving.
  for (const auto& [state, text] : {std::pair{kStatePush, "No new game mode; expected one!"},
                                    {kStateLeave, "No game mode on stack; expected one!"}}) {
    log.clear();
    bound["A"] = {{'X', state, nullptr}};
    Start("A");
    Press('X');
    EXPECT_EQ(Boxes(game->backend), (std::vector<ShownBox>{{text, "Game Failure", false}}));
    EXPECT_EQ(std::pair(game->application->Ended(), game->application->ExitCode()), std::pair(true, 0));
    EXPECT_FALSE(game->backend.WindowOpen());
    if (state == kStateLeave) {
      EXPECT_EQ(log, (std::vector<std::string>{"A activate", "A deactivate", "A delete"}));
      EXPECT_EQ(currentScreen, nullptr);
    }
    game.reset();
  }
}

TEST_F(StackTest, ShortcutsWorkOnEveryScreen) {
  Start("A");
  auto* a = static_cast<ProbeScreen*>(currentScreen);
  ASSERT_EQ(effectsVolume, 100);
  Press(kKeyM);
  EXPECT_EQ(effectsVolume, 0);
  Press(kKeyM);
  EXPECT_EQ(effectsVolume, 100);

  // F11 lets the next key through to the screen alone: F12 then does not quit.
  Press(VK_F11);
  Press(VK_F12);
  EXPECT_FALSE(game->application->Ended());
  EXPECT_EQ(std::count(a->messages.begin(), a->messages.end(), platform::WM_KEYDOWN), 4);
  // So does M after F11.
  Press(VK_F11);
  Press(kKeyM);
  EXPECT_EQ(effectsVolume, 100);

  // The pointer follows the mouse although the screen ignores mouse moves.
  game->backend.MouseMove(123, 45);
  game->RunFor(50);
  EXPECT_EQ(std::pair(theMousePointer->x, theMousePointer->y), std::pair(123, 45));
  EXPECT_EQ(platform::SendMessage(platform::kMainWindow, platform::WM_SETCURSOR, 0, 0), 1);

  Press(VK_F12);
  EXPECT_EQ(std::pair(game->application->Ended(), game->application->ExitCode()), std::pair(true, 0));
  EXPECT_EQ(log, (std::vector<std::string>{"A activate"})) << "the window's end leaves the screens to shutdown";
}

TEST_F(StackTest, FramesComeAtMostEvery34MillisecondsAndWaitForMessages) {
  Start("A");
  auto* a = static_cast<ProbeScreen*>(currentScreen);
  game->RunFor(1000);
  ASSERT_GE(a->ticks.size(), 25u);
  ASSERT_LE(a->ticks.size(), 30u);
  for (std::size_t i = 1; i < a->ticks.size(); ++i) EXPECT_GE(a->ticks[i] - a->ticks[i - 1], 34u);

  // Messages that wait are handled before the next frame.
  std::vector<std::string> order;
  a->onMessage = [&](std::uint32_t message, WParam, LParam) {
    if (message == platform::WM_KEYDOWN) order.push_back("key");
  };
  const std::size_t before = a->ticks.size();
  game->backend.Advance(200);
  for (int i = 0; i < 5; ++i) game->backend.KeyPress('A');
  game->RunFor(1);
  EXPECT_EQ(order.size(), 5u);
  EXPECT_LE(a->ticks.size(), before + 1);
}

TEST_F(StackTest, TheFrameClockAcrossTheWrapOfTheMillisecondCount) {
  // Frames keep their pace through the wrap; each frame takes a millisecond, and input
  // wakes the loop every millisecond.
  struct Timed : ProbeScreen {
    using ProbeScreen::ProbeScreen;
    int Tick(std::uint32_t now) override {
      static_cast<platform::HeadlessBackend*>(platform::CurrentBackend())->Advance(1);
      return ProbeScreen::Tick(now);
    }
  };
  game = std::make_unique<HeadlessGame>([this] { return new Timed("T", &log); });
  auto* timed = static_cast<Timed*>(currentScreen);
  game->backend.SetTime(0xFFFFFFFFu - 100);
  lastFrameTime = game->backend.TickCount();
  for (int ms = 0; ms < 1000; ++ms) {
    game->backend.MouseMove(10, 10, 1);
    game->RunFor(1);
  }
  ASSERT_GE(timed->ticks.size(), 28u);
  for (std::size_t i = 1; i < timed->ticks.size(); ++i)
    EXPECT_GE(timed->ticks[i] - timed->ticks[i - 1], 34u) << timed->ticks[i];

  // The decisions of the loop, a frame on the last millisecond before the wrap included.
  const std::uint32_t top = 0xFFFFFFFFu;
  for (const auto& [now, last, due] :
       {std::tuple{top, top, false}, {32u, top, false}, {33u, top, true}, {1u, top - 31, false}, {34u, 0u, true}})
    EXPECT_EQ(FrameIsDue(now, last), due) << now << " after " << last;
  for (const auto& [now, wait] : {std::pair{top, 34u}, {20u, 13u}, {33u, 0u}})
    EXPECT_EQ(MillisecondsToNextFrame(now, top), wait) << now;
}

TEST(StartUpTest, DisplayFailuresShowTheirReasonAndEndTheProgram) {
  const std::pair<platform::OpenResult, const char*> cases[] = {
      {platform::OpenResult::NoVideo, "DirectDrawCreate failed."},
      {platform::OpenResult::NoDisplayMode, "SetDisplayMode failed."},
  };
  for (const auto& [result, text] : cases) {
    platform::HeadlessBackend backend;
    backend.FailOpen(result);
    platform::InstallBackend(&backend);
    {
      Application application;
      bool made = false;
      EXPECT_EQ(application.StartUp("", [&] {
        made = true;
        return nullptr;
      }), 0);
      EXPECT_FALSE(made);
      EXPECT_TRUE(application.Ended());
    }
    EXPECT_EQ(Boxes(backend), (std::vector<ShownBox>{{text, "Game Init Failure", false}}));
    platform::InstallBackend(nullptr);
  }
}

TEST(CommandLineTest, SwitchesAndStrayWords) {
  // A letter without a switch sign is a word.
  for (const auto& [line, windowed] : {std::pair{"", 0}, {"-F", 1}, {"/f", 1}, {"-D 3 -F", 1}, {"-D4 /F", 1},
                                       {"-T", 0}, {"hello -X world -f", 1}, {"F", 0}, {"-", 0}})
    EXPECT_EQ(ParseCommandLine(line).windowed, windowed) << line;
}

TEST(ScreenObjectTest, EqualityAndNames) {
  ScreenObject a(7, "MAP_MODE"), b(7, "MAP_MODE"), c(8, "MAP_MODE"), d(7, "map_mode");
  ScreenObject empty1(3, ""), empty2(3, nullptr);
  // The same id and name, a different id, a name in other letter case; empty names never match.
  EXPECT_EQ((std::vector{a.IsEqual(b), a.IsDifferent(b), a.IsEqual(c), a.IsEqual(d), a.IsDifferent(d),
                         empty1.IsEqual(empty2), empty1.IsEqual(empty1)}),
            (std::vector{1, 0, 0, 0, 1, 0, 0}));

  const std::string longName(300, 'x');
  ScreenObject longOne(1, longName.c_str());
  EXPECT_EQ(std::string(longOne.GetName()), longName.substr(0, 255));
}

TEST(TextFormatTest, ALongTextComesOutWhole) {
  const std::string name(600, 'n');
  EXPECT_EQ(Format("Do you want to give away %s?", name.c_str()), "Do you want to give away " + name + "?");
}

}  // namespace
