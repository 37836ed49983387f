// The market above another screen, driven through the message loop: the prompt, the
// question with the chosen Kindrel, giving away (never the last Kindrel, never without a
// choice), and leaving.
#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

#include "creatures/PlayerRecord.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DataPath.h"
#include "screens/MarketScreen.h"
#include "shell/Globals.h"
#include "support/BitmapBytes.h"
#include "support/PlaceScreenFixture.h"
#include "support/WaveBytes.h"

using Request = platform::HeadlessAudio::Request;

namespace {

constexpr int kFleenu = 4;  // its picture is "dat\PUFFBALL.bmp", a grey square in these tests
const Rect kGiveAwayButton{120, 340, 320, 370};
const Rect kDoneButton{320, 340, 520, 370};
const Rect kTextBox{100, 80, 540, 330};
const char* const kPrompt = "Choose a Kindrel you want to give away.";
const std::vector<int> kFanfareSamples{700, 1400, 2100, 1400, 700};

class MarketScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("market", "fanfare5.wav", kFanfareSamples);
    BitmapLayout square;
    square.width = 104;
    square.height = 105;
    square.values.assign(static_cast<std::size_t>(square.width) * square.height, 0x969696);
    WriteFile((folder / "dat" / "PUFFBALL.bmp").string(), MakeBitmap(square));
    Start('K', [] { return new MarketScreen(1, "MARKET MODE"); });
  }

  void Visit() {
    Do([&] { game->backend.KeyPress('K'); });
    ASSERT_STREQ(currentScreen->GetName(), "MARKET MODE");
    market = static_cast<MarketScreen*>(currentScreen);
    Do([&] { game->backend.MouseMove(630, 10); });  // the pointer out of the way
  }
  void ClickBox(int slot) { Do([&] { game->backend.LeftClick(6 + 105 * slot + 50, 420); }); }
  void ClickGiveAway() { Do([&] { game->backend.LeftClick(220, 355); }); }
  bool AtMarket() const { return currentScreen == market; }
  Kindrel* Put(int slot, int species, const char* name) {
    thePlayer.party[slot] = Kindrel::Create(species, 3);
    thePlayer.party[slot]->SetName(name);
    return thePlayer.party[slot].get();
  }
  // Whether the frame shows, in the area, exactly the text as the game's text output draws
  // it in white on black, centred and wrapped in the market's text box.
  bool ShowsText(const std::string& text, const Rect& area) {
    Picture canvas;
    canvas.CreateBlank(640, 480);
    SetTextColour(255, 255, 255);
    SetTextTransparent(1);
    if (DrawTextBox(2, text.c_str(), kTextBox, canvas.surface.get(), DT_CENTER | DT_WORDBREAK) <= 0) return false;
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != canvas.surface->At(x, y)) return false;
    return true;
  }
  bool ShowsPrompt() { return ShowsText(kPrompt, {0, 0, 640, 335}); }
  // The question's text line; the chosen Kindrel's picture stands below it.
  bool ShowsQuestion(const std::string& name) {
    return ShowsText("Do you want to give away " + name + "?", {0, 0, 640, 180}) && ShowsPicture();
  }
  // The grey square centred on (320, 240).
  bool ShowsPicture() const {
    const std::uint16_t grey = platform::Rgb565(0x96, 0x96, 0x96);
    const auto& frame = game->backend.LastFrame();
    auto At = [&](int x, int y) { return frame[y * 640 + x]; };
    return At(320, 240) == grey && At(268, 188) == grey && At(371, 292) == grey && At(266, 240) != grey &&
           At(374, 240) != grey && At(320, 186) != grey && At(320, 294) != grey;
  }

  MarketScreen* market = nullptr;
};

TEST_F(MarketScreenTest, TheQuestionAndGivingAwayButNeverTheLastKindrel) {
  Kindrel* mookie = Put(0, kFleenu, "Mookie");
  Put(1, kFleenu, "Puff");
  Kindrel* nimbus = Put(2, kFleenu, "Nimbus");
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
  EXPECT_EQ(thePlayer.party[1], nullptr);
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);

  // The last Kindrel stays, and so does the question; by mouse and by keys.
  ClickBox(2);
  ClickGiveAway();
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);
  EXPECT_TRUE(ShowsQuestion("Nimbus"));
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });  // "Give Away" is lit
  EXPECT_EQ(thePlayer.party[2].get(), nimbus);
  EXPECT_TRUE(ShowsQuestion("Nimbus"));
  EXPECT_TRUE(AtMarket());
  EXPECT_EQ(Plays(kClickSamples), 0) << "neither giving away nor a refusal makes a sound";

  // The box of an empty slot brings the prompt back; "Give Away" then does nothing.
  ClickBox(4);
  EXPECT_TRUE(ShowsPrompt());
  ClickGiveAway();
  EXPECT_EQ(thePlayer.PartyCount(), 1);
}

TEST_F(MarketScreenTest, GiveAwayWithoutAChoiceDoesNothingAndDoneLeaves) {
  Put(0, kFleenu, "Mookie");
  Put(3, kFleenu, "Puff");
  Visit();
  EXPECT_EQ(Plays(kFanfareSamples), 1) << "the fanfare greets the visit";
  EXPECT_EQ(market->widgets.current->GetId(), static_cast<std::uint32_t>(MarketScreen::kDone)) << "Done starts lit";
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  EXPECT_EQ(market->widgets.current->GetId(), static_cast<std::uint32_t>(MarketScreen::kGiveAway));
  Do([&] { game->backend.KeyPress(platform::VK_SPACE); });
  ClickGiveAway();
  Do([&] { game->backend.RightClick(kGiveAwayButton.left, kGiveAwayButton.top); });
  EXPECT_EQ(thePlayer.PartyCount(), 2) << "nothing chosen, nothing given away";
  EXPECT_TRUE(ShowsPrompt());
  Do([&] { game->backend.LeftClick(50, 50); });
  EXPECT_TRUE(AtMarket()) << "a click beside every widget";

  // Down from "Give Away" to "Done"; the boxes come first, after "Done" again.
  Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  EXPECT_EQ(market->widgets.current->GetId(), static_cast<std::uint32_t>(MarketScreen::kDone));
  Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  EXPECT_EQ(market->widgets.current->GetId(), static_cast<std::uint32_t>(MarketScreen::kFirstBox));
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_TRUE(ShowsQuestion("Mookie")) << "Enter on the first box chooses its Kindrel";
  EXPECT_EQ(Plays(kClickSamples), 0);

  Do([&] { game->backend.LeftClick(kDoneButton.right, kDoneButton.bottom); });
  EXPECT_EQ(currentScreen, below) << "the corner of Done";
  EXPECT_EQ(Plays(kClickSamples), 1);
  EXPECT_EQ(thePlayer.PartyCount(), 2) << "leaving with a Kindrel chosen gives nothing away";
  EXPECT_EQ(game->backend.AudioOutput().LiveBuffers(), 1) << "the fanfare is freed with the screen";

  // Every visit starts afresh, with its own fanfare.
  Visit();
  EXPECT_EQ(Plays(kFanfareSamples), 2);
  EXPECT_TRUE(ShowsPrompt());
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_EQ(currentScreen, below);
  EXPECT_EQ(Plays(kClickSamples), 2);
  EXPECT_EQ(below->state, kStateNone);
}

}  // namespace
