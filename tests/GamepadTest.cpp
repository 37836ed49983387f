// A game controller on the real backend, with SDL's dummy video driver and a virtual pad:
// what each part of the pad sends, and a menu chosen and a maze walked with it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "creatures/PlayerRecord.h"
#include "platform/DataPath.h"
#include "platform/SdlBackend.h"
#include "platform/VirtualPad.h"
#include "screens/MainMenuScreen.h"
#include "shell/Globals.h"
#include "support/HeadlessGame.h"
#include "world/MazeScreen.h"

namespace {

using platform::PadButton;

struct Seen {
  std::uint32_t message;
  WParam wParam;
  LParam lParam;
};

class GamepadTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    // The dummy driver's window never has the focus, without which SDL holds back pad input.
    setenv("SDL_JOYSTICK_ALLOW_BACKGROUND_EVENTS", "1", 1);
    thePlayer.StartNewGame();
    thePlayer.currentLocation = &locationTable[1];
    platform::SetDataRoot(QUARNWICK_BUILD_DIR);
  }
  void TearDown() override {
    if (application) application->ShutDown();
    application.reset();
    pad.reset();
    platform::InstallBackend(nullptr);
    backend.reset();
    thePlayer.ReleaseParty();
    platform::SetDataRoot("");
  }
  void Start(const Application::FirstScreenFactory& first) {
    backend = std::make_unique<platform::SdlBackend>();
    platform::InstallBackend(backend.get());
    application = std::make_unique<Application>();
    ASSERT_EQ(application->StartUp("-F", first), 1);
    pad = std::make_unique<platform::VirtualPad>();
    ASSERT_TRUE(pad->Attached());
    application->RunFor(300);  // the pad is plugged in
  }
  void Press(PadButton button, std::uint32_t holdMs = 60) {
    pad->SetButton(button, true);
    application->RunFor(holdMs);
    pad->SetButton(button, false);
    application->RunFor(60);
  }
  std::string Top() const { return currentScreen ? currentScreen->GetName() : ""; }

  std::unique_ptr<platform::SdlBackend> backend;
  std::unique_ptr<Application> application;
  std::unique_ptr<platform::VirtualPad> pad;
  std::vector<std::string> log;  // what the shell did to a probe screen
  std::vector<Seen> seen;        // the input messages that reached it
};

TEST_F(GamepadTest, ThePadSpeaksInTheMessagesOfAMouseAndAKeyboard) {
  Start([&] {
    auto* probe = new ProbeScreen("PROBE", &log);
    probe->onMessage = [this](std::uint32_t m, WParam w, LParam l) {
      if (m != platform::WM_PAINT && m != platform::WM_TIMER) seen.push_back({m, w, l});
    };
    return probe;
  });
  auto count = [&](std::uint32_t message, WParam wParam) {
    return std::count_if(seen.begin(), seen.end(), [&](const Seen& s) { return s.message == message && s.wParam == wParam; });
  };

  // A is the left button at the pointer, held as long as A is; B the right one.
  pad->SetButton(PadButton::A, true);
  application->RunFor(60);
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.back().message, platform::WM_LBUTTONDOWN);
  EXPECT_EQ(seen.back().wParam, platform::MK_LBUTTON);
  EXPECT_EQ(seen.back().lParam, platform::PackPoint(320, 240));
  pad->SetButton(PadButton::A, false);
  application->RunFor(60);
  EXPECT_EQ(seen.back().message, platform::WM_LBUTTONUP);
  Press(PadButton::B);
  EXPECT_EQ(count(platform::WM_RBUTTONDOWN, platform::MK_RBUTTON), 1);

  // The stick moves the pointer, faster the further it is tilted; a slight tilt does nothing.
  seen.clear();
  pad->SetStick(3000, -3000);
  application->RunFor(300);
  EXPECT_EQ(count(platform::WM_MOUSEMOVE, 0), 0) << "inside the dead zone";
  pad->SetStick(32767, 0);
  application->RunFor(300);
  pad->SetStick(0, 0);
  application->RunFor(100);
  ASSERT_GT(count(platform::WM_MOUSEMOVE, 0), 3);
  const int x = platform::PointX(seen.back().lParam);
  EXPECT_GT(x, 320 + 100);
  EXPECT_EQ(platform::PointY(seen.back().lParam), 240);
  const std::size_t moves = seen.size();
  application->RunFor(200);
  EXPECT_EQ(seen.size(), moves) << "a stick at rest moves nothing";

  // The D-pad is the arrow keys, repeated while held; X and Start are Enter, Y is Space.
  seen.clear();
  Press(PadButton::Down, 800);
  EXPECT_GE(count(platform::WM_KEYDOWN, platform::VK_DOWN), 3);
  EXPECT_EQ(count(platform::WM_KEYUP, platform::VK_DOWN), 1);
  Press(PadButton::X);
  Press(PadButton::Start);
  EXPECT_EQ(count(platform::WM_KEYDOWN, platform::VK_RETURN), 2);
  EXPECT_EQ(count(platform::WM_CHAR, platform::VK_RETURN), 2);
  Press(PadButton::Y);
  EXPECT_EQ(count(platform::WM_KEYDOWN, platform::VK_SPACE), 1);
  EXPECT_EQ(count(platform::WM_CHAR, ' '), 1);

  // Back with Start quits like F12.
  pad->SetButton(PadButton::Back, true);
  pad->SetButton(PadButton::Start, true);
  application->RunFor(200);
  EXPECT_TRUE(application->Ended());
  EXPECT_EQ(application->ExitCode(), 0);
}

TEST_F(GamepadTest, AMenuIsChosenAndAMazeWalkedWithThePad) {
  Start([] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); });
  Press(PadButton::Up);  // from "Quit to Desktop" to "Credits"
  Press(PadButton::A);   // at the pointer, over no button: nothing
  EXPECT_EQ(Top(), "MAIN_OPTION_MODE");
  Press(PadButton::X);
  EXPECT_EQ(Top(), "INFO_MODE");
  application->ShutDown();
  application.reset();

  static const std::string area = std::string(QUARNWICK_TEST_DATA) + "/areas/walk.dat";
  Start([] { return new MazeScreen(1, "MAZE MODE", area.c_str()); });
  auto* maze = dynamic_cast<MazeScreen*>(currentScreen);
  ASSERT_NE(maze, nullptr);
  Press(PadButton::Right);
  application->RunFor(400);
  EXPECT_EQ(maze->playerCell, (MazeCell{6, 7}));
  Press(PadButton::Up);
  application->RunFor(400);
  EXPECT_EQ(maze->playerCell, (MazeCell{5, 7}));
}

}  // namespace
