// What the home, the market and the temple share, each visited from the map: the fanfare
// that greets every visit, the widgets answered like a menu, leaving with a click, and the
// party strip.
#include "screens/HomeScreen.h"
#include "screens/MarketScreen.h"
#include "screens/TempleScreen.h"
#include "support/PlaceScreenFixture.h"

namespace {

struct Place {
  const char* name;
  GameMode* (*make)();
  const char* fanfareFile;
  std::uint32_t lit;    // the widget lit on arrival
  std::uint32_t leave;  // the button back to the map
  Rect leaveButton;
  std::uint32_t firstBox;
};
void PrintTo(const Place& p, std::ostream* out) { *out << p.name; }

const Place kHome{"home", []() -> GameMode* { return new HomeScreen(1, "HEAL MODE"); }, "fanfare8.wav",
                  HomeScreen::kExit, HomeScreen::kExit, {220, 350, 420, 370}, HomeScreen::kFirstBox};
const Place kTemple{"temple", []() -> GameMode* { return new TempleScreen(1, "HELP MODE"); }, "fanfare7.wav",
                    TempleScreen::kLearnMore, TempleScreen::kExit, {320, 310, 520, 340}, TempleScreen::kFirstBox};
const Place kMarket{"market", []() -> GameMode* { return new MarketScreen(1, "MARKET MODE"); }, "fanfare5.wav",
                    MarketScreen::kDone, MarketScreen::kDone, {320, 340, 520, 370}, MarketScreen::kFirstBox};
const std::vector<int> kFanfare{1200, 2400, 3600, 2400, 1200, 0};

class PlaceTest : public PlaceScreenFixture, public ::testing::WithParamInterface<Place> {
 protected:
  void SetUp() override {
    Prepare(GetParam().fanfareFile, kFanfare);
    Start(GetParam().make);
    thePlayer.party[0] = Kindrel::Create(4, 2);
    thePlayer.party[3] = Kindrel::Create(4, 2);
  }
  // The pixels drawn in a party box.
  int StripLit(int slot) const {
    int n = 0;
    for (int y = 376; y < 480; ++y)
      for (int x = 7 + 105 * slot; x < 110 + 105 * slot; ++x) n += game->backend.LastFrame()[y * 640 + x] != 0;
    return n;
  }
};

TEST_P(PlaceTest, EveryVisitIsGreetedAndLeftWithAClick) {
  const Place& p = GetParam();
  Visit();
  EXPECT_EQ(Plays(kFanfare), 1) << "the fanfare greets the visit";
  EXPECT_EQ(Lit(), p.lit);
  Key(platform::VK_DOWN);
  EXPECT_NE(Lit(), p.lit);
  Key(platform::VK_UP);
  EXPECT_EQ(Lit(), p.lit) << "Down and Up move the light and back";
  EXPECT_GT(StripLit(3), 100) << "the party strip";
  EXPECT_EQ(StripLit(1), 0);
  // Beside every widget nothing happens; nor does the box of an empty slot, which lights.
  Click(50, 50);
  RightClick(p.leaveButton.left - 1, p.leaveButton.top);
  ClickBox(4);
  Key(platform::VK_RETURN);
  EXPECT_TRUE(AtPlace());
  EXPECT_EQ(Lit(), p.firstBox + 4);
  EXPECT_EQ(Plays(kClickSamples), 0);
  RightClick(p.leaveButton.right, p.leaveButton.bottom);
  EXPECT_EQ(currentScreen, below) << "right-clicking the corner of the leave button";
  EXPECT_EQ(Plays(kClickSamples), 1);
  EXPECT_EQ(game->backend.AudioOutput().LiveBuffers(), 1) << "the fanfare is freed with the screen; the click stays";

  // Each visit has its own fanfare; the keys light the leave button and Space takes it.
  Visit();
  EXPECT_EQ(Plays(kFanfare), 2);
  for (int i = 0; i < 8 && Lit() != p.leave; ++i) Key(platform::VK_UP);
  Key(platform::VK_SPACE);
  EXPECT_EQ(currentScreen, below);
  EXPECT_EQ(Plays(kClickSamples), 2);
  EXPECT_EQ(below->state, kStateNone);
  EXPECT_EQ(log, (std::vector<std::string>{"MAP activate", "MAP deactivate", "MAP activate", "MAP deactivate",
                                           "MAP activate"}));
}

INSTANTIATE_TEST_SUITE_P(Places, PlaceTest, ::testing::Values(kHome, kTemple, kMarket),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
