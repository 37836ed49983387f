// The temple above another screen, driven through the message loop: each visit shows the
// next topic of help.dat, "Learn More" moves on at once, the topics come round again after
// the last, and a missing or topic-less file gives an empty text on a screen that still
// works. The party boxes open a Kindrel's page.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "creatures/PlayerRecord.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DataPath.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/TempleScreen.h"
#include "shell/Globals.h"
#include "support/BitmapBytes.h"
#include "support/PlaceScreenFixture.h"
#include "support/WaveBytes.h"

using Request = platform::HeadlessAudio::Request;

namespace {

const Rect kExitButton{320, 310, 520, 340};
const Rect kLearnMoreButton{120, 310, 320, 340};
const std::vector<int> kFanfareSamples{300, 600, 900, 1200, 900, 600, 300};
const char* const kThreeTopics =
    "Three lessons for the tests\n"
    "INFO The first lesson.\n"
    "\n"
    "INFO The second lesson, a little longer than the first one, so that it wraps onto a second line.\n"
    "remark: INFO in the middle of a line is no topic\n"
    "   info The third lesson.\n";

class TempleScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("temple", "fanfare7.wav", kFanfareSamples);
    std::filesystem::create_directories(folder / "here");
    previous = std::filesystem::current_path();
    std::filesystem::current_path(folder / "here");
    helpTopicIndex = 0;  // as at the start of the program
    Start('T', [] { return new TempleScreen(1, "HELP MODE"); });
  }
  void TearDown() override {
    std::filesystem::current_path(previous);
    PlaceScreenFixture::TearDown();
  }
  void WriteHelp(const std::string& content) { std::ofstream(folder / "here" / "help.dat", std::ios::binary) << content; }
  void Visit() {
    Do([&] { game->backend.KeyPress('T'); });
    ASSERT_STREQ(currentScreen->GetName(), "HELP MODE");
    temple = static_cast<TempleScreen*>(currentScreen);
    Do([&] { game->backend.MouseMove(630, 10); });  // the pointer out of the way
  }
  void Leave() {
    Do([&] { game->backend.LeftClick((kExitButton.left + kExitButton.right) / 2, (kExitButton.top + kExitButton.bottom) / 2); });
    ASSERT_EQ(currentScreen, below);
  }
  bool AtTemple() const { return currentScreen == temple; }
  // Whether everything above the buttons is exactly the text as the game's text output
  // draws it in white on black, centred and wrapped in the temple's text box.
  bool Shows(const std::string& text) {
    Picture canvas;
    canvas.CreateBlank(640, 480);
    SetTextColour(255, 255, 255);
    SetTextTransparent(1);
    DrawTextBox(2, text.c_str(), {100, 80, 540, 300}, canvas.surface.get(), DT_CENTER | DT_WORDBREAK);
    for (int y = 0; y < 305; ++y)
      for (int x = 0; x < 640; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != canvas.surface->At(x, y)) return false;
    return true;
  }
  bool ShowsNothing() {
    for (int y = 0; y < 305; ++y)
      for (int x = 0; x < 640; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != 0) return false;
    return true;
  }

  std::filesystem::path previous;
  TempleScreen* temple = nullptr;
};

const char* const kFirst = "The first lesson. ";
const char* const kSecond = "The second lesson, a little longer than the first one, so that it wraps onto a second line. ";
const char* const kThird = "The third lesson. ";

TEST_F(TempleScreenTest, EachVisitShowsTheNextTopicAndTheFirstComesAgainAfterTheLast) {
  WriteHelp(kThreeTopics);
  for (const char* expected : {kFirst, kSecond, kThird, kFirst, kSecond}) {
    Visit();
    EXPECT_STREQ(temple->topicText, expected);
    EXPECT_TRUE(Shows(expected)) << expected;
    Leave();
  }
  EXPECT_EQ(helpTopicIndex, 2) << "the next visit shows the third topic";
  EXPECT_EQ(Plays(kFanfareSamples), 5) << "one fanfare a visit";
  EXPECT_EQ(Plays(kClickSamples), 5) << "one click for each Exit";
}

TEST_F(TempleScreenTest, LearnMoreMovesOnAtOnceAndTheNextVisitGoesOnFromThere) {
  WriteHelp(kThreeTopics);
  Visit();
  EXPECT_TRUE(Shows(kFirst));
  EXPECT_EQ(temple->widgets.current->GetId(), static_cast<std::uint32_t>(TempleScreen::kLearnMore))
      << "Learn More starts lit";
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_TRUE(AtTemple());
  EXPECT_TRUE(Shows(kSecond));
  Leave();
  Visit();
  EXPECT_TRUE(Shows(kThird)) << "the visit after a Learn More shows the topic after it";
  Do([&] { game->backend.LeftClick(kLearnMoreButton.left, kLearnMoreButton.top); });
  EXPECT_TRUE(Shows(kFirst)) << "Learn More after the last topic";
  Do([&] { game->backend.RightClick(200, 325); });
  EXPECT_TRUE(Shows(kSecond));
  Do([&] { game->backend.KeyPress(platform::VK_SPACE); });
  EXPECT_TRUE(Shows(kThird));
  EXPECT_EQ(Plays(kClickSamples), 1) << "Learn More is silent: only the first visit's Exit clicked";
  EXPECT_EQ(Plays(kFanfareSamples), 2) << "and plays no fanfare either";

  // Up lights Exit, Down from there the first party box, Up again Exit.
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  EXPECT_EQ(temple->widgets.current->GetId(), static_cast<std::uint32_t>(TempleScreen::kExit));
  EXPECT_TRUE(Shows(kThird)) << "moving the light reads nothing";
  Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  EXPECT_EQ(temple->widgets.current->GetId(), static_cast<std::uint32_t>(TempleScreen::kFirstBox));
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_TRUE(AtTemple()) << "the box of an empty slot";
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_EQ(currentScreen, below) << "Enter on Exit";
  EXPECT_EQ(Plays(kClickSamples), 2);
  EXPECT_EQ(game->backend.AudioOutput().LiveBuffers(), 1) << "the fanfare is freed with the screen";
  Visit();
  EXPECT_TRUE(Shows(kFirst));
}

TEST_F(TempleScreenTest, WithoutTopicsTheTextIsEmptyAndTheScreenStillWorks) {
  // No help.dat at all: nothing to read, and the count goes on with the visits.
  Visit();
  EXPECT_STREQ(temple->topicText, "");
  EXPECT_TRUE(ShowsNothing());
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_TRUE(ShowsNothing());
  EXPECT_EQ(helpTopicIndex, 2);
  Leave();
  EXPECT_EQ(helpTopicIndex, 2);
  EXPECT_TRUE(game->backend.MessageBoxes().empty());

  // The file appears: the count picks up where it was.
  WriteHelp(kThreeTopics);
  Visit();
  EXPECT_TRUE(Shows(kThird));
  Leave();

  // A file without topic lines.
  WriteHelp("Nothing but remarks\n\n   INF\nNo INFO here\n");
  Visit();
  EXPECT_TRUE(ShowsNothing());
  EXPECT_EQ(helpTopicIndex, 1) << "no topic 3: back to the first, which is not there either";
  Do([&] { game->backend.LeftClick(200, 320); });
  EXPECT_TRUE(ShowsNothing());
  EXPECT_EQ(helpTopicIndex, 1);
  Leave();
}

TEST_F(TempleScreenTest, APartyBoxOpensThatKindrelsPage) {
  WriteHelp(kThreeTopics);
  thePlayer.party[3] = Kindrel::Create(4, 2);
  Visit();
  Do([&] { game->backend.LeftClick(6 + 105 * 1 + 50, 420); });
  EXPECT_TRUE(AtTemple()) << "an empty slot's box";
  Do([&] { game->backend.LeftClick(6 + 105 * 3 + 50, 420); });
  ASSERT_STREQ(currentScreen->GetName(), "INSPECT_MODE");
  auto* page = static_cast<CreatureInfoScreen*>(currentScreen);
  EXPECT_EQ(page->selectedSlot, 3);
  EXPECT_NE(page->widgets.FindById(CreatureInfoScreen::kSwap), nullptr);
  Do([&] { game->backend.LeftClick(590, 355); });  // the page's EXIT
  ASSERT_TRUE(AtTemple());
  Do([&] { game->backend.MouseMove(630, 10); });
  EXPECT_TRUE(Shows(kFirst)) << "coming back reads no new topic";
  EXPECT_EQ(helpTopicIndex, 1);
}

}  // namespace
