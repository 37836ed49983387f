// The real backend on SDL's dummy video driver, fed with events made by calls and with a
// virtual game controller: what the keyboard, the mouse, the window and each part of the
// pad send the game, and full screen and back.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <utility>

#include "PngFile.h"
#include "platform/FrameUploader.h"
#include "platform/SdlBackend.h"
#include "platform/Settings.h"
#include "platform/VirtualInput.h"
#include "platform/VirtualPad.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"

namespace {

using namespace platform;
namespace input = platform::virtual_input;

struct Seen {
  std::uint32_t message;
  WParam wParam;
  LParam lParam;
  bool operator==(const Seen&) const = default;
};
void PrintTo(const Seen& s, std::ostream* out) { *out << std::hex << s.message << " " << s.wParam << " " << s.lParam; }

class SdlBackendTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    // The dummy driver's window never has the focus, without which SDL holds back pad input.
    setenv("SDL_JOYSTICK_ALLOW_BACKGROUND_EVENTS", "1", 1);
  }
  void TearDown() override { Stop(); }
  void Start(const Application::FirstScreenFactory& first, const char* commandLine = "-F") {
    backend = std::make_unique<SdlBackend>();
    if (settings) backend->UseSettings(settings);
    InstallBackend(backend.get());
    application = std::make_unique<Application>();
    ASSERT_EQ(application->StartUp(commandLine, first), 1);
    pad = std::make_unique<VirtualPad>();
    ASSERT_TRUE(pad->Attached());
    application->RunFor(300);  // the pad is plugged in
  }
  void Stop() {
    if (application) application->ShutDown();
    application.reset();
    pad.reset();
    InstallBackend(nullptr);
    backend.reset();
  }
  // A probe screen that writes down the input messages that reach it.
  void StartProbe(const char* commandLine = "-F") {
    Start([&] {
      auto* probe = new ProbeScreen("PROBE", &log);
      probe->onMessage = [this](std::uint32_t m, WParam w, LParam l) {
        if (m == WM_ACTIVATE || (m >= WM_KEYDOWN && m <= WM_CHAR) || (m >= WM_MOUSEMOVE && m <= WM_RBUTTONUP))
          seen.push_back({m, w, l});
      };
      return probe;
    }, commandLine);
    seen.clear();
  }
  // What reached the screen since the last look.
  std::vector<Seen> Sent() {
    application->RunFor(60);
    return std::exchange(seen, {});
  }
  void Press(PadButton button, std::uint32_t holdMs = 60) {
    pad->SetButton(button, true);
    application->RunFor(holdMs);
    pad->SetButton(button, false);
    application->RunFor(60);
  }

  Settings* settings = nullptr;  // the player's, when a test gives them
  std::unique_ptr<SdlBackend> backend;
  std::unique_ptr<Application> application;
  std::unique_ptr<VirtualPad> pad;
  std::vector<std::string> log;  // what the shell did to a probe screen
  std::vector<Seen> seen;        // the input messages that reached it
};

TEST_F(SdlBackendTest, KeysArriveAsTheVirtualKeysOfAWindowsKeyboard) {
  StartProbe();
  // The keys the game reads: letters, digits and function keys by their ranges, the
  // keypad's digits with their own codes, and the keys that move and choose.
  const std::pair<const char*, std::uint32_t> keys[] = {
      {"A", 'A'}, {"Z", 'Z'}, {"0", '0'}, {"9", '9'}, {"F1", VK_F1}, {"F11", VK_F11}, {"Keypad 0", VK_NUMPAD0},
      {"Keypad 1", VK_NUMPAD0 + 1}, {"Keypad 9", VK_NUMPAD0 + 9}, {"Escape", VK_ESCAPE}, {"Space", VK_SPACE},
      {"Left", VK_LEFT}, {"Up", VK_UP}, {"Right", VK_RIGHT}, {"Down", VK_DOWN}, {"PageUp", VK_PRIOR},
      {"PageDown", VK_NEXT}, {"Home", VK_HOME}, {"End", VK_END},
  };
  for (const auto& [name, vk] : keys) {
    ASSERT_TRUE(input::Key(name, true)) << name;
    input::Key(name, false);
    EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_KEYDOWN, vk, 1}, {WM_KEYUP, vk, 0xC0000001}})) << name;
  }
  // Enter (either) and Backspace are typed characters as well; a held key repeats.
  for (const char* name : {"Return", "Keypad Enter", "Backspace"}) {
    input::Key(name, true);
    const WParam vk = std::string(name) == "Backspace" ? VK_BACK : VK_RETURN;
    EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_KEYDOWN, vk, 1}, {WM_CHAR, vk, 1}})) << name;
  }
  input::Key("Down", true, false, true);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_KEYDOWN, VK_DOWN, 0x40000001}}));
  // Keys the game has no code for send nothing.
  input::Key("CapsLock", true);
  input::Key("CapsLock", false);
  EXPECT_TRUE(Sent().empty());
  EXPECT_FALSE(input::Key("no such key", true));

  // F12 ends the game.
  input::Key("F12", true);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_KEYDOWN, VK_F12, 1}}));
  EXPECT_EQ(std::pair(application->Ended(), application->ExitCode()), std::pair(true, 0));
}

TEST_F(SdlBackendTest, TextTheMouseAndTheWindowArriveAsTheirMessages) {
  StartProbe();
  // Typed UTF-8 arrives in the game's code page; what it cannot hold is dropped.
  input::Text("\xC3\xA9\xE2\x82\xAC" "x\xF0\x9F\x98\x80");
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_CHAR, 0xE9, 1}, {WM_CHAR, 0x80, 1}, {WM_CHAR, 'x', 1}}));

  input::MouseMove(100, 200);
  input::MouseButton(input::Button::Left, true, 101, 201);
  input::MouseButton(input::Button::Left, false, 102, 202);
  input::MouseButton(input::Button::Right, true, 5, 6);
  input::MouseButton(input::Button::Right, false, 639, 479);
  input::MouseButton(input::Button::Middle, true, 7, 8);  // no message of the game's
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_MOUSEMOVE, 0, PackPoint(100, 200)},
                                       {WM_LBUTTONDOWN, 0, PackPoint(101, 201)},
                                       {WM_LBUTTONUP, 0, PackPoint(102, 202)},
                                       {WM_RBUTTONDOWN, 0, PackPoint(5, 6)},
                                       {WM_RBUTTONUP, 0, PackPoint(639, 479)}}));

  input::Window(input::WindowChange::FocusLost);
  input::Window(input::WindowChange::Exposed);  // drawn again, nothing for the game
  input::Window(input::WindowChange::FocusGained);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_ACTIVATE, 0, 0}, {WM_ACTIVATE, 1, 0}}));

  // The window's close button ends the game.
  input::Quit();
  Sent();
  EXPECT_EQ(std::pair(application->Ended(), application->ExitCode()), std::pair(true, 0));
}

TEST_F(SdlBackendTest, AltEnterTogglesFullScreenWhereThePointerIsScaledToTheFrame) {
  // The dummy desktop is 1024 x 768: in full screen a window pixel is 0.625 of a frame pixel.
  for (const char* commandLine : {"-F", ""}) {
    SCOPED_TRACE(commandLine);
    StartProbe(commandLine);
    const bool windowed = *commandLine != '\0';
    auto pointer = [&](int x, int y) {
      input::MouseMove(x, y);
      const auto sent = Sent();
      return sent.empty() ? -1 : sent.back().lParam;
    };
    EXPECT_EQ(pointer(639, 479), windowed ? PackPoint(639, 479) : PackPoint(399, 299));
    input::Key("Return", true, true);
    EXPECT_TRUE(Sent().empty()) << "Alt+Enter is no key of the game";
    EXPECT_EQ(pointer(1023, 767), windowed ? PackPoint(639, 479) : PackPoint(1023, 767));
    EXPECT_EQ(pointer(512, 384), windowed ? PackPoint(320, 240) : PackPoint(512, 384));
    input::Key("Keypad Enter", true, true, true);  // held down: no second change
    input::Key("Keypad Enter", true, true);
    EXPECT_EQ(pointer(639, 479), windowed ? PackPoint(639, 479) : PackPoint(399, 299));
    Stop();
  }
}

// The window comes back as the player left it: a window of its size, or full screen, which
// -F still overrides; Alt+Enter is written down at once.
TEST_F(SdlBackendTest, TheWindowComesBackAsThePlayerLeftIt) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "quarnwick-window-test.conf";
  std::filesystem::remove(file);
  Settings player;
  player.Load(file.string());
  player.SetFlag(Settings::kFullscreen, false);
  player.SetNumber(Settings::kWindowWidth, 1280);
  player.SetNumber(Settings::kWindowHeight, 960);
  settings = &player;
  auto pointer = [&](int x, int y) {
    input::MouseMove(x, y);
    const auto sent = Sent();
    return sent.empty() ? -1 : sent.back().lParam;
  };
  auto written = [&] {
    Settings read;
    read.Load(file.string());
    return read.Flag(Settings::kFullscreen);
  };
  for (const char* commandLine : {"", "-F"}) {
    SCOPED_TRACE(commandLine);
    StartProbe(commandLine);
    EXPECT_EQ(pointer(640, 480), PackPoint(320, 240)) << "a window of 1280 x 960";
    input::Key("Return", true, true);
    EXPECT_EQ(pointer(1023, 767), PackPoint(639, 479)) << "full screen";
    EXPECT_TRUE(written());
    input::Key("Return", true, true);
    EXPECT_EQ(pointer(640, 480), PackPoint(320, 240));
    EXPECT_FALSE(written());
    Stop();
    player.SetFlag(Settings::kFullscreen, true);  // -F opens the window all the same
  }
  settings = nullptr;
  std::filesystem::remove(file);
}

// The platform's own keys never reach a screen: Tab held runs the game's clock three times
// as fast, which the title says; F9 writes the frame as shown to a PNG file and the title
// says where.
TEST_F(SdlBackendTest, TabAndF9AreThePlatformsAndNoScreenSeesThem) {
  TempFolder home{"screenshots"};
  setenv("XDG_DATA_HOME", home.string().c_str(), 1);
  StartProbe();
  input::Key("Tab", true);
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(backend->WindowTitle(), "Quarnwick x3");
  input::Key("Tab", false);
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(backend->WindowTitle(), "Quarnwick");

  input::Key("F9", true);
  input::Key("F9", false);
  EXPECT_TRUE(Sent().empty());
  const std::filesystem::path folder = home / "quarnwick" / "screenshots";
  std::vector<std::filesystem::path> shots;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) shots.push_back(entry.path());
  ASSERT_EQ(shots.size(), 1u);
  EXPECT_TRUE(std::regex_match(shots[0].filename().string(), std::regex(R"(quarnwick-\d{8}-\d{6}\.png)")));
  EXPECT_EQ(backend->WindowTitle(), "Quarnwick - screenshot saved to " + shots[0].string());
  baker::RgbaImage image;
  std::string error;
  ASSERT_TRUE(baker::ReadPng(shots[0].string(), image, error)) << error;
  const Surface* frame = WindowSurface();
  ASSERT_TRUE(frame && image.width == frame->Width() && image.height == frame->Height());
  int differing = 0;
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      const auto& p = image.pixels[static_cast<std::size_t>(y) * image.width + x];
      const std::uint16_t q = frame->At(x, y);
      differing += p.r != Red8(q) || p.g != Green8(q) || p.b != Blue8(q) || p.a != 255;
    }
  }
  EXPECT_EQ(differing, 0);
  unsetenv("XDG_DATA_HOME");
}

TEST_F(SdlBackendTest, ThePadSpeaksInTheMessagesOfAMouseAndAKeyboard) {
  StartProbe();
  // A is the left button at the pointer, held as long as A is; B the right one. X and
  // Start are Enter, Y is Space.
  const LParam middle = PackPoint(320, 240);
  pad->SetButton(PadButton::A, true);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_LBUTTONDOWN, MK_LBUTTON, middle}}));
  pad->SetButton(PadButton::A, false);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_LBUTTONUP, 0, middle}}));
  Press(PadButton::B);
  EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_RBUTTONDOWN, MK_RBUTTON, middle}, {WM_RBUTTONUP, 0, middle}}));
  for (const auto& [button, vk] :
       {std::pair{PadButton::X, VK_RETURN}, {PadButton::Start, VK_RETURN}, {PadButton::Y, VK_SPACE}}) {
    Press(button);
    EXPECT_EQ(Sent(), (std::vector<Seen>{{WM_KEYDOWN, vk, 1}, {WM_CHAR, vk, 1}, {WM_KEYUP, vk, 0xC0000001}}));
  }

  // The D-pad is the arrow keys, repeated while held.
  Press(PadButton::Down, 800);
  const auto held = Sent();
  ASSERT_GE(held.size(), 4u);
  EXPECT_EQ(held.front(), (Seen{WM_KEYDOWN, VK_DOWN, 1}));
  for (std::size_t i = 1; i + 1 < held.size(); ++i) EXPECT_EQ(held[i], (Seen{WM_KEYDOWN, VK_DOWN, 0x40000001}));
  EXPECT_EQ(held.back(), (Seen{WM_KEYUP, VK_DOWN, 0xC0000001}));

  // The stick moves the pointer, faster the further it is tilted; a slight tilt does nothing.
  pad->SetStick(3000, -3000);
  application->RunFor(300);
  EXPECT_TRUE(Sent().empty()) << "inside the dead zone";
  pad->SetStick(32767, 0);
  application->RunFor(300);
  pad->SetStick(0, 0);
  const auto moves = Sent();
  ASSERT_GT(moves.size(), 3u);
  for (const Seen& move : moves) EXPECT_EQ(std::pair(move.message, move.wParam), std::pair(WM_MOUSEMOVE, WParam{0}));
  EXPECT_GT(PointX(moves.back().lParam), 320 + 100);
  EXPECT_EQ(PointY(moves.back().lParam), 240);
  application->RunFor(200);
  EXPECT_TRUE(Sent().empty()) << "a stick at rest moves nothing";

  // Back with Start quits like F12.
  pad->SetButton(PadButton::Back, true);
  pad->SetButton(PadButton::Start, true);
  application->RunFor(200);
  EXPECT_EQ(std::pair(application->Ended(), application->ExitCode()), std::pair(true, 0));
}

}  // namespace
