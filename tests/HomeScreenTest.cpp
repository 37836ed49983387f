// The home above another screen, driven through the message loop: the party is healed
// once per visit, and the screen shows its text over the party.
#include "screens/CreatureInfoScreen.h"
#include "screens/HomeScreen.h"
#include "support/PlaceScreenFixture.h"

namespace {

class HomeScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Prepare("fanfare8.wav", {1200, 2400});
    Start([] { return new HomeScreen(1, "HEAL MODE"); });
  }
  Kindrel& Put(int slot, int species, int level, int hitPoints) {
    thePlayer.party[slot] = Kindrel::Create(species, level);
    thePlayer.party[slot]->hitPoints = hitPoints;
    return *thePlayer.party[slot];
  }
  int FullHitPoints(const Kindrel& k) const { return Kindrel::Create(k.species->index, k.level)->hitPoints; }
};

TEST_F(HomeScreenTest, ANightAtHomeHealsThePartyOncePerVisit) {
  Kindrel& fainted = Put(0, 4, 3, 0);
  fainted.status[Poisoned] = -1.0f;
  fainted.poisonDamage = 2;
  fainted.experience = 45;
  fainted.SetName("Mookie");
  Kindrel& weary = Put(2, 9, 6, 5);
  weary.status[Slow] = -0.5f;
  weary.status[Paralyzed] = -0.25f;
  weary.status[Offense] = 2.0f;  // a boost ends as well
  Kindrel& scratched = Put(5, 23, 1, 1);
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
  EXPECT_EQ(thePlayer.PartyCount(), 3);

  // Hurt during the visit: frames, input, a look at a Kindrel's page and back, and leaving
  // do not heal again.
  weary.hitPoints = 2;
  weary.status[Poisoned] = -1.0f;
  game->RunFor(500);
  Key(platform::VK_UP);
  Click(300, 200);
  ClickBox(2);
  ASSERT_STREQ(currentScreen->GetName(), "INSPECT_MODE");
  auto* page = static_cast<CreatureInfoScreen*>(currentScreen);
  EXPECT_EQ(page->selectedSlot, 2);
  EXPECT_NE(page->widgets.FindById(CreatureInfoScreen::kSwap), nullptr) << "opened from a place, the page can swap";
  Click(590, 355);  // the page's EXIT
  ASSERT_TRUE(AtPlace());
  Click(320, 360);
  ASSERT_EQ(currentScreen, below);
  EXPECT_EQ(weary.hitPoints, 2);
  EXPECT_EQ(weary.status[Poisoned], -1.0f);

  // The next visit is another night.
  Visit();
  EXPECT_EQ(weary.hitPoints, FullHitPoints(weary));
  EXPECT_EQ(weary.status[Poisoned], 0.0f);
}

TEST_F(HomeScreenTest, TheRestingTextOverTheParty) {
  Visit();
  const char* kText = "You and your Kindrels spend the night resting at home, and everyone wakes up fully healed.";
  EXPECT_TRUE(ShowsText(kText, {100, 80, 540, 330}, {0, 0, 640, 340}))
      << "the text, white and centred, wrapped in its box, and nothing else above the button";
}

}  // namespace
