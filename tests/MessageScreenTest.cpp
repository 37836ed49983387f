// The message screen above another screen: how it is left with and without a text, and
// what it shows.
#include "screens/MessageScreen.h"
#include "support/HeadlessGame.h"

namespace {

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

TEST_F(MessageScreenTest, WithATextOnlyTheButtonContinues) {
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

  Open(kCredits);
  game->Click(300, 380);
  EXPECT_TRUE(Left());
  EXPECT_EQ(log, (std::vector<std::string>{"BELOW activate", "BELOW deactivate", "BELOW activate"}));
}

TEST_F(MessageScreenTest, AnEmptyTextIsTheBarePictureAndAnyClickContinues) {
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
