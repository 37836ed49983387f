// The home above another screen, driven through the message loop: the party is healed
// once per visit, the screen shows its text over the party, and "EXIT" leaves.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <unistd.h>

#include "creatures/PlayerRecord.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DataPath.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/HomeScreen.h"
#include "shell/Globals.h"
#include "support/BitmapBytes.h"
#include "support/PlaceScreenFixture.h"
#include "support/WaveBytes.h"

using Request = platform::HeadlessAudio::Request;

namespace {

const Rect kExitButton{220, 350, 420, 370};
const std::vector<int> kFanfareSamples{1200, 2400, 3600, 2400, 1200, 0};

class HomeScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("home", "fanfare8.wav", kFanfareSamples);
    Start('H', [] { return new HomeScreen(1, "HEAL MODE"); });
  }

  void Visit() {
    Do([&] { game->backend.KeyPress('H'); });
    ASSERT_STREQ(currentScreen->GetName(), "HEAL MODE");
    home = static_cast<HomeScreen*>(currentScreen);
  }
  bool AtHome() const { return currentScreen == home; }
  Kindrel& Put(int slot, int species, int level) {
    thePlayer.party[slot] = Kindrel::Create(species, level);
    return *thePlayer.party[slot];
  }
  int FullHitPoints(const Kindrel& k) const { return Kindrel::Create(k.species->index, k.level)->hitPoints; }
  // Whether the frame shows, in the rectangle, exactly the text as the game's text output
  // draws it in white on black.
  bool ShowsText(const char* text, const Rect& box, const Rect& area) {
    Picture canvas;
    canvas.CreateBlank(640, 480);
    SetTextColour(255, 255, 255);
    SetTextTransparent(1);
    if (DrawTextBox(2, text, box, canvas.surface.get(), DT_CENTER | DT_WORDBREAK) <= 0) return false;
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != canvas.surface->At(x, y)) return false;
    return true;
  }

  HomeScreen* home = nullptr;
};

TEST_F(HomeScreenTest, ANightAtHomeHealsThePartyOncePerVisit) {
  Kindrel& fainted = Put(0, 4, 3);
  fainted.hitPoints = 0;
  fainted.status[Poisoned] = -1.0f;
  fainted.poisonDamage = 2;
  fainted.experience = 45;
  fainted.SetName("Mookie");
  Kindrel& weary = Put(2, 9, 6);
  weary.hitPoints = 5;
  weary.status[Slow] = -0.5f;
  weary.status[Paralyzed] = -0.25f;
  weary.status[Offense] = 2.0f;  // a boost ends as well
  weary.experience = 260;
  Kindrel& scratched = Put(5, 23, 1);
  scratched.hitPoints = 1;
  scratched.status[Accuracy] = -0.75f;
  scratched.status[Defense] = -1.0f;
  scratched.status[Speed] = 1.0f;

  Visit();
  for (int slot : {0, 2, 5}) {
    const Kindrel& k = *thePlayer.party[slot];
    EXPECT_EQ(k.hitPoints, FullHitPoints(k)) << "slot " << slot;
    EXPECT_GT(k.hitPoints, 1) << "slot " << slot;
    for (float value : k.status) EXPECT_EQ(value, 0.0f) << "slot " << slot;
  }
  // Nothing else changes: the same Kindrels in the same slots with their levels,
  // experience and names; empty slots stay empty.
  EXPECT_EQ(thePlayer.party[0].get(), &fainted);
  EXPECT_EQ(thePlayer.party[2].get(), &weary);
  EXPECT_EQ(thePlayer.party[5].get(), &scratched);
  EXPECT_EQ(fainted.level, 3);
  EXPECT_EQ(fainted.experience, 45u);
  EXPECT_STREQ(fainted.name, "Mookie");
  EXPECT_EQ(weary.level, 6);
  EXPECT_EQ(weary.experience, 260u);
  for (int slot : {1, 3, 4}) EXPECT_EQ(thePlayer.party[slot], nullptr);

  // Hurt during the visit: frames, input, a look at a Kindrel's page and back, and leaving
  // do not heal again.
  weary.hitPoints = 2;
  weary.status[Poisoned] = -1.0f;
  game->RunFor(500);
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  Do([&] { game->backend.LeftClick(300, 200); });
  EXPECT_TRUE(AtHome());
  Do([&] { game->backend.LeftClick(6 + 105 * 2 + 50, 420); });
  ASSERT_STREQ(currentScreen->GetName(), "INSPECT_MODE") << "the box of the Kindrel in slot 2";
  auto* page = static_cast<CreatureInfoScreen*>(currentScreen);
  EXPECT_EQ(page->selectedSlot, 2);
  EXPECT_NE(page->widgets.FindById(CreatureInfoScreen::kSwap), nullptr) << "opened from home, the page can swap";
  Do([&] { game->backend.LeftClick(590, 355); });  // the page's EXIT
  ASSERT_TRUE(AtHome());
  EXPECT_EQ(weary.hitPoints, 2);
  Do([&] { game->backend.LeftClick(320, 360); });
  ASSERT_EQ(currentScreen, below);
  EXPECT_EQ(weary.hitPoints, 2);
  EXPECT_EQ(weary.status[Poisoned], -1.0f);

  // The next visit is another night.
  Visit();
  EXPECT_EQ(weary.hitPoints, FullHitPoints(weary));
  EXPECT_EQ(weary.status[Poisoned], 0.0f);
}

TEST_F(HomeScreenTest, ExitLeavesWithAClickAndTheFanfarePlaysOncePerVisit) {
  Put(0, 4, 1);
  Visit();
  EXPECT_EQ(Plays(kFanfareSamples), 1) << "the fanfare greets the visit";
  EXPECT_EQ(Plays(kClickSamples), 0);
  EXPECT_EQ(home->widgets.current->GetId(), static_cast<std::uint32_t>(HomeScreen::kExit)) << "EXIT starts lit";

  // Beside every widget, nothing happens.
  Do([&] { game->backend.LeftClick(50, 50); });
  Do([&] { game->backend.RightClick(219, 360); });
  EXPECT_TRUE(AtHome());
  // Up lights the last party box; its slot is empty, so choosing it does nothing.
  Do([&] { game->backend.KeyPress(platform::VK_UP); });
  EXPECT_EQ(home->widgets.current->GetId(), static_cast<std::uint32_t>(HomeScreen::kFirstBox + 5));
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_TRUE(AtHome());
  Do([&] { game->backend.LeftClick(6 + 105 * 3 + 50, 420); });
  EXPECT_TRUE(AtHome()) << "the box of an empty slot";
  EXPECT_EQ(home->widgets.current->GetId(), static_cast<std::uint32_t>(HomeScreen::kFirstBox + 3));
  EXPECT_EQ(Plays(kClickSamples), 0);
  // The button comes after the six boxes.
  for (int i = 0; i < 3; ++i) Do([&] { game->backend.KeyPress(platform::VK_DOWN); });
  EXPECT_EQ(home->widgets.current->GetId(), static_cast<std::uint32_t>(HomeScreen::kExit));
  Do([&] { game->backend.KeyPress(platform::VK_SPACE); });
  EXPECT_EQ(currentScreen, below) << "Space on EXIT";
  EXPECT_EQ(Plays(kClickSamples), 1);
  EXPECT_EQ(game->backend.AudioOutput().LiveBuffers(), 1) << "the fanfare is freed with the screen; the click stays";

  Visit();
  EXPECT_EQ(Plays(kFanfareSamples), 2);
  Do([&] { game->backend.RightClick(kExitButton.right, kExitButton.bottom); });
  EXPECT_EQ(currentScreen, below) << "right-clicking the corner of EXIT";
  Visit();
  Do([&] { game->backend.KeyPress(platform::VK_RETURN); });
  EXPECT_EQ(currentScreen, below);
  EXPECT_EQ(Plays(kFanfareSamples), 3);
  EXPECT_EQ(Plays(kClickSamples), 3);
  EXPECT_EQ(below->state, kStateNone);
  EXPECT_EQ(log, (std::vector<std::string>{"MAP activate", "MAP deactivate", "MAP activate", "MAP deactivate",
                                           "MAP activate", "MAP deactivate", "MAP activate"}));
}

TEST_F(HomeScreenTest, TheRestingTextOverTheParty) {
  Put(1, 4, 2);
  Visit();
  game->backend.MouseMove(600, 20);
  game->RunFor(100);
  const char* kText = "You and your Kindrels spend the night resting at home, and everyone wakes up fully healed.";
  EXPECT_TRUE(ShowsText(kText, {100, 80, 540, 330}, {0, 0, 640, 340}))
      << "the text, white and centred, wrapped in its box, and nothing else above the button";
  // The EXIT caption in the highlight colour.
  const std::uint16_t green = platform::Rgb565(100, 255, 100);
  int lit = 0;
  for (int y = kExitButton.top; y < kExitButton.bottom; ++y)
    for (int x = kExitButton.left; x < kExitButton.right; ++x) lit += game->backend.LastFrame()[y * 640 + x] == green;
  EXPECT_GT(lit, 20);
  // The party strip: the level-2 Kindrel in the second box, nothing in the first.
  auto Lit = [&](int slot) {
    int n = 0;
    for (int y = 376; y < 480; ++y)
      for (int x = 7 + 105 * slot; x < 110 + 105 * slot; ++x) n += game->backend.LastFrame()[y * 640 + x] != 0;
    return n;
  };
  EXPECT_GT(Lit(1), 100);
  EXPECT_EQ(Lit(0), 0);
}

}  // namespace
