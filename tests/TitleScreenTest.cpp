// The title screen driven through the message loop: keys and mouse move the highlight,
// Enter and clicks press buttons, and what is seen follows.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/DataPath.h"
#include "screens/TitleScreen.h"
#include "shell/Globals.h"
#include "support/BitmapBytes.h"
#include "support/HeadlessGame.h"
#include "support/WaveBytes.h"

using Request = platform::HeadlessAudio::Request;

namespace {

class TitleScreenTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("QUARNWICK_SEED", "99", 1);
    // A data folder with a click of our own.
    folder = std::filesystem::temp_directory_path() / ("quarnwick-title-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "dat");
    WriteFile((folder / "dat" / "button2.wav").string(), MakeWaveFile({9000, -9000, 9000, -9000}));
    platform::SetDataRoot(folder.string());
    game = std::make_unique<HeadlessGame>([] { return new TitleScreen(1, "TITLE_MODE"); }, "-F",
                                          HeadlessGame::Sound::On);
    title = static_cast<TitleScreen*>(currentScreen);
    game->RunFor(200);
  }
  void TearDown() override {
    game.reset();
    unsetenv("QUARNWICK_SEED");
    std::filesystem::remove_all(folder);
  }
  int Clicks() const { return static_cast<int>(game->backend.AudioOutput().CallsOf(Request::Play).size() +
                                               game->backend.AudioOutput().CallsOf(Request::Rewind).size()); }
  int CountColour(const Rect& r, int red, int green, int blue) const {
    const std::uint16_t want = platform::Rgb565(red, green, blue);
    int n = 0;
    for (int y = r.top; y < r.bottom; ++y)
      for (int x = r.left; x < r.right; ++x) n += game->backend.LastFrame()[y * 640 + x] == want;
    return n;
  }
  std::filesystem::path folder;
  std::unique_ptr<HeadlessGame> game;
  TitleScreen* title = nullptr;
};

const Rect kSparksButton{200, 300, 440, 330};
const Rect kQuitButton{200, 350, 440, 380};

TEST_F(TitleScreenTest, KeysMoveTheHighlightAndEnterPresses) {
  EXPECT_EQ(title->widgets.current->GetId(), TitleScreen::kSparks);
  EXPECT_GT(CountColour(kSparksButton, 100, 255, 100), 0);
  EXPECT_EQ(CountColour(kQuitButton, 100, 255, 100), 0);
  game->backend.KeyPress(platform::VK_DOWN);
  game->RunFor(100);
  EXPECT_EQ(title->widgets.current->GetId(), TitleScreen::kQuit);
  EXPECT_GT(CountColour(kQuitButton, 100, 255, 100), 0);
  EXPECT_GT(CountColour(kSparksButton, 180, 180, 230), 0);
  game->backend.KeyPress(platform::VK_DOWN);
  game->RunFor(100);
  EXPECT_EQ(title->widgets.current->GetId(), TitleScreen::kSparks) << "the highlight wraps round";

  // Sparks rise above the title until they are switched off.
  const std::uint16_t* frame = game->backend.LastFrame().data();
  std::vector<std::uint16_t> before(frame, frame + 640 * 100);
  game->RunFor(100);
  EXPECT_FALSE(std::equal(before.begin(), before.end(), game->backend.LastFrame().data()));
  EXPECT_EQ(Clicks(), 0) << "moving the highlight is silent";
  game->backend.KeyPress(platform::VK_RETURN);
  game->RunFor(2000);
  EXPECT_STREQ(title->widgets.current->Caption(), "Sparks: Off");
  EXPECT_EQ(Clicks(), 1) << "a pressed button clicks";
  EXPECT_TRUE(game->backend.MessageBoxes().empty());
  before.assign(game->backend.LastFrame().data(), game->backend.LastFrame().data() + 640 * 100);
  game->RunFor(300);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), game->backend.LastFrame().data())) << "still, once the sparks are gone";
  game->backend.KeyPress(platform::VK_SPACE);
  game->RunFor(100);
  EXPECT_STREQ(title->widgets.current->Caption(), "Sparks: On");
  EXPECT_FALSE(game->application->Ended());
}

TEST_F(TitleScreenTest, TheMouseHighlightsAndClicks) {
  game->backend.MouseMove(320, 365);
  game->RunFor(100);
  EXPECT_EQ(title->widgets.current->GetId(), TitleScreen::kQuit);
  EXPECT_GT(CountColour(kQuitButton, 100, 255, 100), 0);
  game->backend.MouseMove(10, 10);
  game->RunFor(100);
  EXPECT_EQ(title->widgets.current->GetId(), TitleScreen::kQuit) << "nothing under the mouse: the highlight stays";
  game->backend.LeftClick(320, 315);
  game->RunFor(100);
  EXPECT_STREQ(title->widgets.FindById(TitleScreen::kSparks)->Caption(), "Sparks: Off");
  game->backend.LeftClick(200, 380);  // the corner of the quit button
  game->RunFor(100);
  EXPECT_TRUE(game->application->Ended());
  EXPECT_EQ(game->application->ExitCode(), 0);
}

}  // namespace
