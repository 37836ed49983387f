// The temple above another screen, driven through the message loop: each visit shows the
// next topic of help.dat, "Learn More" moves on at once, the topics come round again after
// the last, and without a file the text is empty on a screen that still works. (Which
// lines are topics is the help file reader's test.)
#include <fstream>

#include "screens/TempleScreen.h"
#include "support/PlaceScreenFixture.h"

namespace {

const Rect kLearnMoreButton{120, 310, 320, 340};
const std::vector<int> kFanfareSamples{300, 600, 900, 1200, 900, 600, 300};
const char* const kThreeTopics =
    "Three lessons for the tests\n"
    "INFO The first lesson.\n"
    "\n"
    "INFO The second lesson, a little longer than the first one, so that it wraps onto a second line.\n"
    "remark: INFO in the middle of a line is no topic\n"
    "   info The third lesson.\n";
const char* const kFirst = "The first lesson. ";
const char* const kSecond = "The second lesson, a little longer than the first one, so that it wraps onto a second line. ";
const char* const kThird = "The third lesson. ";

class TempleScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("fanfare7.wav", kFanfareSamples);
    std::filesystem::create_directories(folder / "here");
    previous = std::filesystem::current_path();
    std::filesystem::current_path(folder / "here");
    helpTopicIndex = 0;  // as at the start of the program
    Start([] { return new TempleScreen(1, "HELP MODE"); });
  }
  void TearDown() override {
    std::filesystem::current_path(previous);
    PlaceScreenFixture::TearDown();
  }
  void WriteHelp(const std::string& content) { std::ofstream(folder / "here" / "help.dat", std::ios::binary) << content; }
  void Leave() {
    Click(420, 325);
    ASSERT_EQ(currentScreen, below);
  }
  // Everything above the buttons is exactly the text in the temple's text box.
  bool Shows(const std::string& text) { return ShowsText(text, {100, 80, 540, 300}, {0, 0, 640, 305}); }

  std::filesystem::path previous;
};

TEST_F(TempleScreenTest, EachVisitShowsTheNextTopicAndTheFirstComesAgainAfterTheLast) {
  WriteHelp(kThreeTopics);
  for (const char* expected : {kFirst, kSecond, kThird, kFirst, kSecond}) {
    Visit();
    EXPECT_TRUE(Shows(expected)) << expected;
    Leave();
  }
  EXPECT_EQ(helpTopicIndex, 2) << "the next visit shows the third topic";
}

TEST_F(TempleScreenTest, LearnMoreMovesOnAtOnceAndTheNextVisitGoesOnFromThere) {
  WriteHelp(kThreeTopics);
  Visit();
  Key(platform::VK_RETURN);  // Learn More is lit
  EXPECT_TRUE(AtPlace());
  EXPECT_TRUE(Shows(kSecond));
  Leave();
  Visit();
  EXPECT_TRUE(Shows(kThird)) << "the visit after a Learn More shows the topic after it";
  Click(kLearnMoreButton.left, kLearnMoreButton.top);
  EXPECT_TRUE(Shows(kFirst)) << "Learn More after the last topic";
  RightClick(200, 325);
  EXPECT_TRUE(Shows(kSecond));
  Key(platform::VK_SPACE);
  EXPECT_TRUE(Shows(kThird));
  EXPECT_EQ(Plays(kClickSamples), 1) << "Learn More is silent: only the first visit's Exit clicked";
  EXPECT_EQ(Plays(kFanfareSamples), 2) << "and plays no fanfare either";

  // Moving the light, or a look at a Kindrel's page and back, reads nothing.
  Key(platform::VK_UP);
  EXPECT_EQ(Lit(), static_cast<std::uint32_t>(TempleScreen::kExit));
  thePlayer.party[3] = Kindrel::Create(4, 2);
  ClickBox(3);
  ASSERT_STREQ(currentScreen->GetName(), "INSPECT_MODE");
  Click(590, 355);
  Do([&] { game->backend.MouseMove(630, 10); });
  EXPECT_TRUE(Shows(kThird));
  EXPECT_EQ(helpTopicIndex, 3);
}

TEST_F(TempleScreenTest, WithoutTopicsTheTextIsEmptyAndTheScreenStillWorks) {
  // No help.dat at all: nothing shown, nothing said, and the count goes on with the visits.
  Visit();
  EXPECT_TRUE(Shows(""));
  Key(platform::VK_RETURN);
  EXPECT_TRUE(Shows(""));
  EXPECT_EQ(helpTopicIndex, 2);
  EXPECT_TRUE(game->backend.MessageBoxes().empty());
  Leave();

  // The file appears: the count picks up where it was.
  WriteHelp(kThreeTopics);
  Visit();
  EXPECT_TRUE(Shows(kThird));
}

}  // namespace
