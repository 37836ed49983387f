// The market above another screen, driven through the message loop: the prompt, the
// question with the chosen Kindrel, and giving away (never the last Kindrel, never without
// a choice).
#include "screens/MarketScreen.h"
#include "support/PlaceScreenFixture.h"

namespace {

constexpr int kFleenu = 4;  // its picture is "dat\PUFFBALL.bmp", a grey square in these tests
const Rect kGiveAwayButton{120, 340, 320, 370};
const Rect kTextBox{100, 80, 540, 330};

class MarketScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("fanfare5.wav", {700, 1400});
    std::filesystem::copy_file(TestData("kindrel.bmp"), folder / "dat" / "PUFFBALL.bmp");
    Start([] { return new MarketScreen(1, "MARKET MODE"); });
  }
  void ClickGiveAway() { Click(220, 355); }
  Kindrel* Put(int slot, const char* name) {
    thePlayer.party[slot] = Kindrel::Create(kFleenu, 3);
    thePlayer.party[slot]->SetName(name);
    return thePlayer.party[slot].get();
  }
  bool ShowsPrompt() { return ShowsText("Choose a Kindrel you want to give away.", kTextBox, {0, 0, 640, 335}); }
  // The question's text line, and the chosen Kindrel's picture below it.
  bool ShowsQuestion(const std::string& name) {
    return ShowsText("Do you want to give away " + name + "?", kTextBox, {0, 0, 640, 180}) && ShowsPicture();
  }
  // The grey square centred on (320, 240), its top-left pixel transparent.
  bool ShowsPicture() const {
    const std::uint16_t grey = platform::Rgb565(0x96, 0x96, 0x96);
    auto At = [&](int x, int y) { return game->backend.LastFrame()[y * 640 + x]; };
    return At(320, 240) == grey && At(269, 188) == grey && At(371, 292) == grey && At(266, 240) != grey &&
           At(374, 240) != grey && At(320, 186) != grey && At(320, 294) != grey;
  }
};

TEST_F(MarketScreenTest, TheQuestionAndGivingAwayButNeverTheLastKindrel) {
  Kindrel* mookie = Put(0, "Mookie");
  Put(1, "Puff");
  Kindrel* nimbus = Put(2, "Nimbus");
  Visit();
  EXPECT_TRUE(ShowsPrompt());
  EXPECT_FALSE(ShowsPicture());

  ClickBox(1);
  EXPECT_TRUE(ShowsQuestion("Puff"));
  EXPECT_EQ(thePlayer.party[1]->hitPoints, Kindrel::Create(kFleenu, 3)->hitPoints) << "asking takes nothing";
  ClickGiveAway();
  EXPECT_EQ(thePlayer.party[1], nullptr) << "Puff is gone";
  EXPECT_EQ(thePlayer.party[0].get(), mookie);
  EXPECT_EQ(thePlayer.party[2].get(), nimbus) << "the others keep their places";
  EXPECT_EQ(thePlayer.PartyCount(), 2);
  EXPECT_TRUE(ShowsPrompt()) << "the chosen slot is empty now";
  ClickGiveAway();
  EXPECT_EQ(thePlayer.PartyCount(), 2) << "giving away the empty slot again does nothing";

  // Slot 0 given away stays empty: the next Kindrel does not move into it.
  ClickBox(0);
  EXPECT_TRUE(ShowsQuestion("Mookie"));
  ClickGiveAway();
  EXPECT_EQ(thePlayer.party[0], nullptr);
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);

  // The last Kindrel stays, and so does the question; by mouse and by keys.
  ClickBox(2);
  ClickGiveAway();
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);
  EXPECT_TRUE(ShowsQuestion("Nimbus"));
  Key(platform::VK_RETURN);  // "Give Away" is lit
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);
  EXPECT_TRUE(ShowsQuestion("Nimbus"));
  EXPECT_TRUE(AtPlace());
  EXPECT_EQ(Plays(kClickSamples), 0) << "neither giving away nor a refusal makes a sound";

  // The box of an empty slot brings the prompt back; "Give Away" then does nothing.
  ClickBox(4);
  EXPECT_TRUE(ShowsPrompt());
  ClickGiveAway();
  EXPECT_EQ(thePlayer.PartyCount(), 1);
}

TEST_F(MarketScreenTest, GiveAwayWithoutAChoiceDoesNothingAndDoneLeaves) {
  Put(0, "Mookie");
  Put(3, "Puff");
  Visit();
  Key(platform::VK_UP);
  EXPECT_EQ(Lit(), static_cast<std::uint32_t>(MarketScreen::kGiveAway));
  Key(platform::VK_SPACE);
  ClickGiveAway();
  RightClick(kGiveAwayButton.left, kGiveAwayButton.top);
  EXPECT_EQ(thePlayer.PartyCount(), 2) << "nothing chosen, nothing given away";
  EXPECT_TRUE(ShowsPrompt());

  // Leaving with a Kindrel chosen gives nothing away; the next visit starts afresh.
  ClickBox(0);
  Click(420, 355);  // Done
  EXPECT_EQ(currentScreen, below);
  EXPECT_EQ(thePlayer.PartyCount(), 2);
  Visit();
  EXPECT_TRUE(ShowsPrompt());
}

}  // namespace
