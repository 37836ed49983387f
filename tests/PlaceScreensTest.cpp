// The places of the map (the home, the market and the temple), each pushed above a probe
// standing for the world map, on a headless game with a sound device and a data folder of
// its own that holds the click and the place's fanfare: what they share, and each one's
// own work.
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/HomeScreen.h"
#include "screens/MarketScreen.h"
#include "screens/PlaceScreen.h"
#include "screens/TempleScreen.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

namespace {

class PlaceScreenFixture : public ::testing::Test {
 protected:
  static inline const std::vector<int> kClickSamples{9000, -9000, 9000, -9000};

  // The data folder with the click and the fanfare, and the game; each visit pushes a
  // place made by `make` above the map.
  void Start(const char* fanfareFile, const std::vector<int>& fanfare, std::function<GameMode*()> make) {
    WriteFile((folder / "dat" / "button2.wav").string(), MakeWaveFile(kClickSamples));
    WriteFile((folder / "dat" / fanfareFile).string(), MakeWaveFile(fanfare));
    makePlace = std::move(make);
    game = std::make_unique<HeadlessGame>([this] { return below = new ProbeScreen("MAP", &log); }, "-F",
                                          HeadlessGame::Sound::On);
    thePlayer.NewGameReset();
  }
  void TearDown() override {
    game.reset();
    ResetGameRecord();
  }
  // Comes in from the map, with the pointer out of the way.
  void Visit() {
    game->Push(makePlace());
    ASSERT_NE(currentScreen, below);
    place = static_cast<PlaceScreen*>(currentScreen);
    PointerAway();
  }
  void PointerAway() {
    game->backend.MouseMove(630, 10);
    game->RunFor(100);
  }
  bool AtPlace() const { return currentScreen == place; }
  std::uint32_t Lit() const { return place->widgets.current->GetId(); }
  void Key(std::uint32_t key) { game->Key(key); }
  void Click(int x, int y) { game->Click(x, y); }
  void RightClick(int x, int y) { game->RightClick(x, y); }
  void ClickBox(int slot) { Click(6 + 105 * slot + 50, 420); }
  // How often the sound made from these samples was started.
  int Plays(const std::vector<int>& samples) const {
    using Request = platform::HeadlessAudio::Request;
    const auto& audio = game->backend.AudioOutput();
    int plays = 0;
    for (const auto& buffer : audio.Buffers()) {
      if (buffer.samples != Pcm16(samples)) continue;
      for (const auto& call : audio.Calls())
        plays += call.buffer == buffer.number && (call.request == Request::Play || call.request == Request::Rewind);
    }
    return plays;
  }
  // Whether the frame shows, in the area, exactly the text as the game's text output draws
  // it in white on black, centred and wrapped in the box (an empty text: nothing at all).
  bool ShowsText(const std::string& text, const Rect& box, const Rect& area) {
    Picture canvas;
    canvas.CreateBlank(640, 480);
    SetTextColour(255, 255, 255);
    SetTextTransparent(1);
    const int height = DrawTextBox(2, text.c_str(), box, canvas.surface.get(), DT_CENTER | DT_WORDBREAK);
    if (!text.empty() && height <= 0) return false;
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != canvas.surface->At(x, y)) return false;
    return true;
  }

  TempFolder folder{"place", TempFolder::DataRoot};
  std::unique_ptr<HeadlessGame> game;
  std::vector<std::string> log;
  ProbeScreen* below = nullptr;
  PlaceScreen* place = nullptr;
  std::function<GameMode*()> makePlace;
};

// What every place shares: the fanfare that greets every visit, the widgets answered like
// a menu, leaving with a click, and the party strip.
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
    Start(GetParam().fanfareFile, kFanfare, GetParam().make);
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
  EXPECT_EQ(std::tuple(Plays(kFanfare), Lit()), std::tuple(1, p.lit)) << "the fanfare greets the visit";
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
  EXPECT_EQ(std::tuple(Lit(), Plays(kClickSamples)), std::tuple(p.firstBox + 4, 0));
  RightClick(p.leaveButton.right, p.leaveButton.bottom);
  EXPECT_EQ(currentScreen, below) << "right-clicking the corner of the leave button";
  // The fanfare is freed with the screen; the click stays.
  EXPECT_EQ(std::tuple(Plays(kClickSamples), game->backend.AudioOutput().LiveBuffers()), std::tuple(1, 1));

  // Each visit has its own fanfare; the keys light the leave button and Space takes it.
  Visit();
  EXPECT_EQ(Plays(kFanfare), 2);
  for (int i = 0; i < 8 && Lit() != p.leave; ++i) Key(platform::VK_UP);
  Key(platform::VK_SPACE);
  EXPECT_EQ(std::tuple(currentScreen, Plays(kClickSamples), below->state),
            std::tuple(static_cast<GameMode*>(below), 2, std::int32_t{kStateNone}));
  EXPECT_EQ(log, (std::vector<std::string>{"MAP activate", "MAP deactivate", "MAP activate", "MAP deactivate",
                                           "MAP activate"}));
}

INSTANTIATE_TEST_SUITE_P(Places, PlaceTest, ::testing::Values(kHome, kTemple, kMarket),
                         [](const auto& info) { return std::string(info.param.name); });

// The home: the party is healed once per visit, and the screen shows its text over the
// party.
class HomeScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    Start("fanfare8.wav", {1200, 2400}, [] { return new HomeScreen(1, "HEAL MODE"); });
  }
  Kindrel& Put(int slot, int species, int level, int hitPoints, std::vector<std::pair<StatusEffect, float>> status) {
    thePlayer.party[slot] = Kindrel::Create(species, level);
    thePlayer.party[slot]->hitPoints = hitPoints;
    for (const auto& [effect, value] : status) thePlayer.party[slot]->status[effect] = value;
    return *thePlayer.party[slot];
  }
  int FullHitPoints(const Kindrel& k) const { return Kindrel::Create(k.species->index, k.level)->hitPoints; }
};

TEST_F(HomeScreenTest, ANightAtHomeHealsThePartyOncePerVisitAndSaysSo) {
  // Boosts end as well.
  Kindrel& fainted = Put(0, 4, 3, 0, {{Poisoned, -1.0f}});
  fainted.poisonDamage = 2;
  fainted.experience = 45;
  fainted.SetName("Mookie");
  Kindrel& weary = Put(2, 9, 6, 5, {{Slow, -0.5f}, {Paralyzed, -0.25f}, {Offense, 2.0f}});
  Kindrel& scratched = Put(5, 23, 1, 1, {{Accuracy, -0.75f}, {Defense, -1.0f}, {Speed, 1.0f}});

  Visit();
  const char* kText = "You and your Kindrels spend the night resting at home, and everyone wakes up fully healed.";
  EXPECT_TRUE(ShowsText(kText, {100, 80, 540, 330}, {0, 0, 640, 340}))
      << "the text, white and centred, wrapped in its box, and nothing else above the button";
  for (int slot : {0, 2, 5}) {
    const Kindrel& k = *thePlayer.party[slot];
    EXPECT_EQ(k.hitPoints, FullHitPoints(k)) << "slot " << slot;
    EXPECT_GT(k.hitPoints, 1) << "slot " << slot;
    for (float value : k.status) EXPECT_EQ(value, 0.0f) << "slot " << slot;
  }
  // Nothing else changes: the same Kindrels in the same slots with their levels,
  // experience and names; empty slots stay empty.
  EXPECT_EQ(std::tuple(thePlayer.party[0].get(), thePlayer.party[2].get(), thePlayer.party[5].get()),
            std::tuple(&fainted, &weary, &scratched));
  EXPECT_EQ(std::tuple(fainted.level, fainted.experience, std::string(fainted.name)), std::tuple(3, 45u, "Mookie"));
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
  EXPECT_EQ(std::tuple(weary.hitPoints, weary.status[Poisoned]), std::tuple(2, -1.0f));

  // The next visit is another night.
  Visit();
  EXPECT_EQ(std::tuple(weary.hitPoints, weary.status[Poisoned]), std::tuple(FullHitPoints(weary), 0.0f));
}

// The market: the prompt, the question with the chosen Kindrel, and giving away (never the
// last Kindrel, never without a choice).
constexpr int kFleenu = 4;  // its picture is "dat\PUFFBALL.bmp", a grey square in these tests
const Rect kGiveAwayButton{120, 340, 320, 370};
const Rect kTextBox{100, 80, 540, 330};

class MarketScreenTest : public PlaceScreenFixture {
 protected:
  void SetUp() override {
    std::filesystem::copy_file(TestData("kindrel.bmp"), folder / "dat" / "PUFFBALL.bmp");
    Start("fanfare5.wav", {700, 1400}, [] { return new MarketScreen(1, "MARKET MODE"); });
  }
  void ClickGiveAway() { Click(220, 355); }
  Kindrel* Put(int slot, const char* name) {
    thePlayer.party[slot] = Kindrel::Create(kFleenu, 3);
    thePlayer.party[slot]->SetName(name);
    return thePlayer.party[slot].get();
  }
  // The Kindrels of the party's slots.
  std::vector<Kindrel*> Party() const {
    std::vector<Kindrel*> slots;
    for (const auto& k : thePlayer.party) slots.push_back(k.get());
    return slots;
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

TEST_F(MarketScreenTest, TheQuestionAndGivingAwayButNeverTheLastKindrelNorWithoutAChoice) {
  Kindrel* mookie = Put(0, "Mookie");
  Kindrel* puff = Put(1, "Puff");
  Kindrel* nimbus = Put(2, "Nimbus");
  using Slots = std::vector<Kindrel*>;
  Visit();
  EXPECT_TRUE(ShowsPrompt());
  EXPECT_FALSE(ShowsPicture());
  // Give Away without a choice does nothing, by keys, by mouse, at the button's corner.
  Key(platform::VK_UP);
  EXPECT_EQ(Lit(), static_cast<std::uint32_t>(MarketScreen::kGiveAway));
  Key(platform::VK_SPACE);
  ClickGiveAway();
  RightClick(kGiveAwayButton.left, kGiveAwayButton.top);
  EXPECT_EQ(Party(), (Slots{mookie, puff, nimbus, nullptr, nullptr, nullptr}));
  EXPECT_TRUE(ShowsPrompt());

  ClickBox(1);
  EXPECT_TRUE(ShowsQuestion("Puff"));
  EXPECT_EQ(thePlayer.party[1]->hitPoints, Kindrel::Create(kFleenu, 3)->hitPoints) << "asking takes nothing";
  ClickGiveAway();
  EXPECT_EQ(Party(), (Slots{mookie, nullptr, nimbus, nullptr, nullptr, nullptr})) << "Puff is gone, the others stay";
  EXPECT_TRUE(ShowsPrompt()) << "the chosen slot is empty now";
  ClickGiveAway();
  EXPECT_EQ(thePlayer.PartyCount(), 2) << "giving away the empty slot again does nothing";

  // Slot 0 given away stays empty: the next Kindrel does not move into it.
  ClickBox(0);
  EXPECT_TRUE(ShowsQuestion("Mookie"));
  ClickGiveAway();
  EXPECT_EQ(Party(), (Slots{nullptr, nullptr, nimbus, nullptr, nullptr, nullptr}));

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

  // Leaving with a Kindrel chosen gives nothing away; the next visit starts afresh.
  ClickBox(2);
  Click(420, 355);  // Done
  EXPECT_EQ(currentScreen, below);
  EXPECT_EQ(thePlayer.PartyCount(), 1);
  Visit();
  EXPECT_TRUE(ShowsPrompt());
}

// The temple: each visit shows the next topic of help.dat, "Learn More" moves on at once,
// the topics come round again after the last, and without a file the text is empty on a
// screen that still works. (Which lines are topics is the help file reader's test.)
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
    helpTopicIndex = 0;  // as at the start of the program
    Start("fanfare7.wav", kFanfareSamples, [] { return new TempleScreen(1, "HELP MODE"); });
  }
  void WriteHelp(const std::string& content) { std::ofstream(folder / "here" / "help.dat", std::ios::binary) << content; }
  void Leave() {
    Click(420, 325);
    ASSERT_EQ(currentScreen, below);
  }
  // Everything above the buttons is exactly the text in the temple's text box.
  bool Shows(const std::string& text) { return ShowsText(text, {100, 80, 540, 300}, {0, 0, 640, 305}); }

  InFolder here{folder / "here"};
};

TEST_F(TempleScreenTest, EachVisitAndLearnMoreShowTheNextTopicAndTheFirstComesAgainAfterTheLast) {
  // No help.dat at all: nothing shown, nothing said, and the count goes on with the visits.
  Visit();
  EXPECT_TRUE(Shows(""));
  Key(platform::VK_RETURN);  // Learn More is lit
  EXPECT_TRUE(Shows(""));
  EXPECT_EQ(helpTopicIndex, 2);
  EXPECT_TRUE(game->backend.MessageBoxes().empty());
  Leave();

  // The file appears: the count picks up where it was, after the Learn More. Learn More
  // moves on at once, by the mouse, the right button and the keys, round after the last.
  WriteHelp(kThreeTopics);
  Visit();
  EXPECT_TRUE(Shows(kThird));
  Click(kLearnMoreButton.left, kLearnMoreButton.top);
  EXPECT_TRUE(Shows(kFirst)) << "Learn More after the last topic";
  RightClick(200, 325);
  EXPECT_TRUE(Shows(kSecond));
  Key(platform::VK_SPACE);
  EXPECT_TRUE(Shows(kThird));
  Leave();
  // Each visit shows the next topic, the first again after the last.
  Visit();
  EXPECT_TRUE(Shows(kFirst));
  Leave();
  Visit();
  EXPECT_TRUE(Shows(kSecond));
  // Learn More is silent (only the Exits clicked) and plays no fanfare either.
  EXPECT_EQ(std::tuple(Plays(kClickSamples), Plays(kFanfareSamples)), std::tuple(3, 4));

  // Moving the light, or a look at a Kindrel's page and back, reads nothing.
  Key(platform::VK_UP);
  EXPECT_EQ(Lit(), static_cast<std::uint32_t>(TempleScreen::kExit));
  thePlayer.party[3] = Kindrel::Create(4, 2);
  ClickBox(3);
  ASSERT_STREQ(currentScreen->GetName(), "INSPECT_MODE");
  Click(590, 355);
  PointerAway();
  EXPECT_TRUE(Shows(kSecond));
  EXPECT_EQ(helpTopicIndex, 2);
}

}  // namespace
