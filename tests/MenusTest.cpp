// The main menu, the options, the pause menu and the message screen, driven from start-up
// like a player: the buttons by mouse and keys, the settings wrapping round, the tune kept
// across the options and the credits, a new game, quitting a game back to the menu, saving
// and loading; and a message screen above another screen, left with and without a text.
#include <cerrno>
#include <cmath>
#include <numbers>

#include "platform/AtomicFile.h"
#include "platform/DrawText.h"
#include "screens/MainMenuScreen.h"
#include "screens/MessageScreen.h"
#include "screens/OptionsScreen.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

namespace {

using Request = platform::HeadlessAudio::Request;

class MenusTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // A data folder with a click and a tune of our own.
    WriteFile((folder / "dat" / "button2.wav").string(), MakeWaveFile({9000, -9000}));
    WriteFile((folder / "dat" / "pcmonst1.wav").string(), MakeWaveFile({100, 200, 300, 200}));
    game = std::make_unique<HeadlessGame>([] { return new MainMenuScreen(1, "MAIN_OPTION_MODE"); }, "-F",
                                          HeadlessGame::Sound::On);
    menu = static_cast<MainMenuScreen*>(currentScreen);
    game->RunFor(100);
  }
  void TearDown() override {
    game.reset();
    ResetGameRecord();
  }
  const char* Top() const { return currentScreen ? currentScreen->GetName() : ""; }
  // The dialog of the save or load button (both at the same place) answered; the screen
  // then on top.
  std::string SaveOrLoad(const std::optional<std::string>& answer) {
    game->backend.ScriptDialog(answer);
    game->Click(320, 325);
    return Top();
  }
  // How often a looping sound was started.
  int TuneStarts() const {
    int n = 0;
    for (const auto& call : game->backend.AudioOutput().CallsOf(Request::Play)) n += call.value == 1;
    return n;
  }

  TempFolder folder{"menus", TempFolder::DataRoot};
  std::unique_ptr<HeadlessGame> game;
  MainMenuScreen* menu = nullptr;
};

TEST_F(MenusTest, EnterAtOnceQuitsAndClicksBesideButtonsDoNothing) {
  EXPECT_EQ(menu->buttons.current->GetId(), MainMenuScreen::kQuit);
  // The system arrow of start-up stays through the frames until the mouse first moves.
  EXPECT_TRUE(game->backend.SystemCursorVisible());
  game->Click(320, 20);
  EXPECT_FALSE(game->backend.SystemCursorVisible());
  game->RightClick(320, 20);
  EXPECT_STREQ(Top(), "MAIN_OPTION_MODE");
  // F12 while the load dialog is up does nothing; Escape closes the dialog.
  game->backend.LeftClick(320, 325);
  game->backend.KeyPress(platform::VK_F12, 100);
  game->backend.KeyPress(platform::VK_ESCAPE, 100);
  game->RunFor(500);
  ASSERT_EQ(game->backend.DialogCalls().size(), 1u);
  EXPECT_FALSE(game->backend.DialogCalls()[0].scripted);
  EXPECT_FALSE(game->application->Ended());
  EXPECT_STREQ(Top(), "MAIN_OPTION_MODE");
  game->backend.MouseMove(320, 425);  // back to "Quit to Desktop"
  game->Key(platform::VK_RETURN);
  EXPECT_EQ(std::pair(game->application->Ended(), game->application->ExitCode()), std::pair(true, 0));
}

TEST_F(MenusTest, OptionsWrapRoundAndTheTuneKeepsPlaying) {
  EXPECT_EQ(TuneStarts(), 1);
  game->RightClick(320, 355);  // a right click acts like a left one here
  ASSERT_STREQ(Top(), "DIFF_MODE");
  auto* options = static_cast<OptionsScreen*>(currentScreen);
  EXPECT_EQ(options->buttons.current->GetId(), OptionsScreen::kContinue);
  for (int i = 0; i < 3; ++i) game->Click(320, 355);
  EXPECT_EQ(thePlayer.difficulty, kNormal) << "three steps forward come round again";
  for (int i = 0; i < 2; ++i) game->RightClick(320, 355);
  EXPECT_EQ(thePlayer.difficulty, kHard) << "backward from EASY gives HARD";
  EXPECT_STREQ(options->buttons.FindById(OptionsScreen::kDifficulty)->Caption(), "Difficulty: HARD");
  thePlayer.textSpeed = 10;
  game->Click(320, 385);
  EXPECT_EQ(thePlayer.textSpeed, 1);
  game->RightClick(320, 385);
  EXPECT_EQ(thePlayer.textSpeed, 10);
  game->Click(320, 325);
  EXPECT_STREQ(options->buttons.FindById(OptionsScreen::kGender)->Caption(), "Player is FEMALE");
  game->Key(platform::VK_UP);  // from the gender up to "Continue"
  game->Key(platform::VK_RETURN);
  EXPECT_STREQ(Top(), "MAIN_OPTION_MODE");
  EXPECT_EQ(TuneStarts(), 1) << "the tune did not start again on the way back";

  // The credits, and back: still no second tune.
  game->Click(320, 385);
  ASSERT_STREQ(Top(), "INFO_MODE");
  // Three empty lines, then three sentences, one to a line of the message's rectangle.
  std::vector<std::string> lines;
  for (const auto& line : platform::LayoutText(*theDisplay->FontAt(2), creditsText, 520 - 120,
                                               platform::DT_CENTER | platform::DT_WORDBREAK)) {
    lines.push_back(line.text);
  }
  ASSERT_EQ(lines.size(), 6u) << ::testing::PrintToString(lines);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(lines[i].empty(), i < 3) << lines[i];
  for (int i = 3; i < 6; ++i) EXPECT_EQ(lines[i].back(), '.') << lines[i];
  game->Click(320, 380);
  EXPECT_STREQ(Top(), "MAIN_OPTION_MODE");
  EXPECT_EQ(std::pair(TuneStarts(), game->backend.AudioOutput().LiveBuffers()), std::pair(1, 2))
      << "the one tune; the click and the tune live";
}

TEST_F(MenusTest, ANewGameKeepsTheOptionsAndQuittingItReturnsToTheMenu) {
  thePlayer.difficulty = kEasy;
  thePlayer.textSpeed = 9;
  game->Click(320, 295);
  ASSERT_STREQ(Top(), "MAP_MODE");
  EXPECT_EQ(std::tuple(thePlayer.difficulty, thePlayer.textSpeed, thePlayer.PartyCount()), std::tuple(kEasy, 9, 1))
      << "the options, and Mookie";

  // Options on the map, then Quit Game: back through the map to the menu.
  game->Key(platform::VK_RETURN);
  ASSERT_STREQ(Top(), "PAUSE OPTION MODE");
  game->Key(platform::VK_RETURN);  // "Quit Game" is current
  game->backend.MouseMove(5, 5);
  game->RunFor(200);
  EXPECT_EQ(std::tuple(std::string(Top()), gameQuitRequest), std::tuple("MAIN_OPTION_MODE", 0));
  EXPECT_EQ(TuneStarts(), 3) << "the menu, the pause menu, and the menu again after a game";
}

TEST_F(MenusTest, SavingFromThePauseMenuAndLoadingFromTheMainMenu) {
  const std::string save = (folder / "journey").string();
  game->Click(320, 295);  // a new game
  thePlayer.party[0]->SetName("Saved Mookie");
  game->Key(platform::VK_RETURN);  // the map's "Options"
  ASSERT_STREQ(Top(), "PAUSE OPTION MODE");
  // Cancelled: nothing written, the pause menu stays.
  EXPECT_EQ(SaveOrLoad(std::nullopt), "PAUSE OPTION MODE");
  // A write that fails says so and stays.
  platform::FailNextFileWrites(1, EACCES);
  EXPECT_EQ(SaveOrLoad(save), "PAUSE OPTION MODE");
  ASSERT_FALSE(game->backend.MessageBoxes().empty());
  EXPECT_EQ(game->backend.MessageBoxes().back().caption, "Cannot save the game");
  // A completed save goes back to the map.
  EXPECT_EQ(SaveOrLoad(save + ".txt"), "MAP_MODE");
  ASSERT_TRUE(std::filesystem::exists(save + ".gam"));
  ASSERT_EQ(game->backend.DialogCalls().size(), 3u);
  EXPECT_EQ(game->backend.DialogCalls()[0].kind, platform::FileDialogKind::Save);

  // Quit to the main menu, change the game, and load it back.
  game->Key(platform::VK_RETURN);
  game->Key(platform::VK_RETURN);
  game->backend.MouseMove(5, 5);
  game->RunFor(200);
  ASSERT_STREQ(Top(), "MAIN_OPTION_MODE");
  thePlayer.party[0]->SetName("Someone Else");
  EXPECT_EQ(SaveOrLoad(std::nullopt), "MAIN_OPTION_MODE") << "a cancelled load stays";
  std::ofstream(folder / "broken.gam") << "320 200\nYES\nBad\n99 1 1 0\n";
  EXPECT_EQ(SaveOrLoad((folder / "broken.gam").string()), "MAIN_OPTION_MODE") << "a broken file is refused";
  EXPECT_STREQ(thePlayer.party[0]->name, "Someone Else");
  EXPECT_EQ(game->backend.MessageBoxes().back().caption, "Cannot load the game");
  EXPECT_EQ(SaveOrLoad(save + ".gam"), "MAP_MODE");
  EXPECT_STREQ(thePlayer.party[0]->name, "Saved Mookie");
  EXPECT_EQ(game->backend.DialogCalls().back().kind, platform::FileDialogKind::Open);
}

TEST(TurnTowardTest, TurnsTheShortWayAtMostTheLimit) {
  constexpr float pi = std::numbers::pi_v<float>;
  // Heading up, target to the right: a small right turn.
  EXPECT_FLOAT_EQ(TurnToward(100, 100, 200, 100, 0.0f, 0.1f), 0.1f);
  // Heading right, target up: a left turn.
  EXPECT_FLOAT_EQ(TurnToward(100, 100, 100, 0, pi / 2, 0.1f), -0.1f);
  // Nearly there: the remaining difference.
  EXPECT_NEAR(TurnToward(100, 100, 200, 100, pi / 2 - 0.05f, 0.1f), 0.05f, 1e-5f);
  // Heading nearly straight down on the left side (-3.0), target down and a little left:
  // the short way is a small left turn across the wrap of the angle, not a turn all round.
  const float turn = TurnToward(0, 0, -10, 100, -3.0f, 0.5f);
  EXPECT_LT(std::fabs(turn), 0.5f);
  // Without a limit, the absolute bearing.
  EXPECT_NEAR(TurnToward(0, 0, 0, 100, 0.0f, 0.0f), pi, 1e-5f);
}

// Starts a probe screen and puts a message screen above it.
class MessageScreenTest : public ::testing::Test {
 protected:
  void Open(const char* text) {
    game.reset();
    log.clear();
    game = std::make_unique<HeadlessGame>([this] { return below = new ProbeScreen("BELOW", &log); });
    game->Push(new MessageScreen(1, "INFO_MODE", text, "dat\\nowhere.bmp"));
    ASSERT_STREQ(currentScreen->GetName(), "INFO_MODE");
  }
  bool Left() const { return currentScreen == below; }
  int Lit(const Rect& r) const {
    int n = 0;
    for (int y = r.top; y < r.bottom; ++y)
      for (int x = r.left; x < r.right; ++x) n += game->backend.LastFrame()[y * 640 + x] != 0;
    return n;
  }

  std::vector<std::string> log;
  std::unique_ptr<HeadlessGame> game;
  ProbeScreen* below = nullptr;
};

const char* const kCredits = "\n\n\nMade by us.";

TEST_F(MessageScreenTest, WithATextOnlyTheButtonContinuesWithoutOneAnyClick) {
  Open(kCredits);
  EXPECT_GT(Lit({120, 80, 520, 370}), 0) << "the text";
  EXPECT_GT(Lit({220, 370, 420, 396}), 0) << "the button";
  game->Click(10, 10);
  EXPECT_FALSE(Left()) << "a click beside the button";
  game->RightClick(10, 10);
  EXPECT_FALSE(Left());
  game->RightClick(420, 395);
  EXPECT_TRUE(Left()) << "right-clicking the button's corner";
  EXPECT_EQ(below->state, kStateNone);

  Open(kCredits);
  game->Key(platform::VK_DOWN);
  EXPECT_FALSE(Left());
  game->Key(platform::VK_SPACE);
  EXPECT_TRUE(Left());
  EXPECT_EQ(log, (std::vector<std::string>{"BELOW activate", "BELOW deactivate", "BELOW activate"}));

  // An empty text is the bare picture, and any click continues.
  Open("");
  EXPECT_EQ(Lit({100, 60, 640, 480}), 0) << "no text, no button, and here no picture either";
  game->RightClick(10, 10);
  EXPECT_FALSE(Left()) << "right clicks beside the button do nothing";
  game->Click(10, 10);
  EXPECT_TRUE(Left());
  Open("");
  game->Key(platform::VK_RETURN);
  EXPECT_TRUE(Left());
}

}  // namespace
