// The world, played from a new game. The map, the creature information screen and the
// wizard towers: which places show and open, the hover and click rules, renaming and
// swapping, and a tower before and after its battle. The maze walk, from the map, on the
// small area tests/data/areas/walk.dat: steps by keys and the mouse, what does and does
// not count toward an encounter, the encounters with their ranges and their real combats,
// events and items, exits, the view, the information screen with the ambient sound, and
// areas that cannot be walked.
//
// walk.dat (start at the bottom exit (6, 8)):
//   y0 1111111111      a: species 0..6, levels 1..3 over (1..4, 1..4)
//   y1 1aaaaf0001      b: species 30, level 5 over (2..3, 2..3), later than a
//   y2 1abba0M0K1      M: a sign; K: needs Key, gives Gate Pass
//   y3 1abba00011      G: gives Flute of Wind; L: gives Flute
//   y4 1aaaa0G0L1      f: hidden, gives flute
//   y5 1000000001
//   y6 1111201111
//   y7 1000000001
//   y8 1111112111
#include <climits>
#include <filesystem>
#include <set>

#include <unistd.h>

#include "combat/CombatMode.h"
#include "platform/DataPath.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/MessageScreen.h"
#include "screens/TowerScreen.h"
#include "shell/Random.h"
#include "support/HeadlessGame.h"
#include "world/EncounterDraw.h"
#include "world/EventScreen.h"
#include "world/MazeScreen.h"
#include "world/WorldMapScreen.h"

namespace {

class WorldTest : public ::testing::Test {
 protected:
  void SetUp() override { Start(HeadlessGame::Sound::Off); }
  // A new game on the map, with or without a sound device, at the place of that row.
  void Start(HeadlessGame::Sound sound, int place = 0) {
    game.reset();
    thePlayer.StartNewGame();
    thePlayer.currentLocation = &locationTable[place];
    game = std::make_unique<HeadlessGame>([] { return new WorldMapScreen(1, "MAP_MODE"); }, "-F", sound);
    map = static_cast<WorldMapScreen*>(currentScreen);
    game->RunFor(100);
  }
  void TearDown() override {
    game.reset();
    ResetGameRecord();
    platform::SetDataRoot("");
  }
  std::string Top() const { return currentScreen ? currentScreen->GetName() : ""; }

  std::unique_ptr<HeadlessGame> game;
  WorldMapScreen* map = nullptr;
};

TEST_F(WorldTest, ANewGameShowsFivePlacesAndTheHoverAndClickRules) {
  // Exactly 20 pixels from both Home and Genwood Forest: the later row is hovered.
  game->backend.MouseMove(320, 220);
  game->RunFor(100);
  ASSERT_NE(map->hovered, nullptr);
  EXPECT_STREQ(map->hovered->name, "Genwood Forest");
  EXPECT_STREQ(WorldMapScreen::PlaceNear(320, 220, false)->name, "Home") << "the first row wins a click";
  EXPECT_EQ(WorldMapScreen::PlaceNear(320, 180, false), &locationTable[0]);
  EXPECT_EQ(WorldMapScreen::PlaceNear(340, 201, false), nullptr) << "20.02 away";
  EXPECT_EQ(WorldMapScreen::PlaceNear(70, 110, false), nullptr) << "a closed tower";
  // Away from every place the name stays.
  game->backend.MouseMove(600, 20);
  game->RunFor(100);
  EXPECT_STREQ(map->hovered->name, "Genwood Forest");

  // A wild area becomes the current place and opens its maze.
  game->Click(320, 242);
  EXPECT_STREQ(thePlayer.currentLocation->name, "Genwood Forest");
  EXPECT_NE(Top(), "MAP_MODE");
}

TEST_F(WorldTest, PartyBoxesOpenTheInformationScreenToSwapAndRename) {
  thePlayer.party[2] = Kindrel::Create(0, 3);
  game->Key(platform::VK_UP);  // from "Options" up to the sixth box
  EXPECT_EQ(map->widgets.current->GetId(), 6u);
  game->Click(163, 420);  // slot 1 is empty
  EXPECT_EQ(Top(), "MAP_MODE");
  game->Click(20, 420);  // Mookie's box
  ASSERT_EQ(Top(), "INSPECT_MODE");
  auto* info = static_cast<CreatureInfoScreen*>(currentScreen);
  EXPECT_STREQ(info->nameField->Caption(), "Mookie");
  EXPECT_NE(info->widgets.FindById(CreatureInfoScreen::kSwap), nullptr);
  // Typing goes to the name field at once; clicking the box shown then discards it.
  game->Type("zz");
  EXPECT_STREQ(info->nameField->Caption(), "Mookiezz");
  game->Click(20, 420);
  EXPECT_STREQ(info->nameField->Caption(), "Mookie");
  // SWAP, then the empty slot 4: Mookie moves there and slot 0 is empty.
  game->Click(590, 325);
  EXPECT_EQ(info->swapArmed, 1);
  game->Click(440, 420);
  EXPECT_EQ(std::tuple(info->swapArmed, thePlayer.party[0].get(), info->selectedSlot), std::tuple(0, nullptr, 4));
  ASSERT_NE(thePlayer.party[4], nullptr);
  EXPECT_STREQ(thePlayer.party[4]->name, "Mookie");
  // Typing (into the name field, chosen again), then another box: the typing is stored first.
  game->Click(100, 60);
  game->Type("!");
  game->Click(230, 420);
  EXPECT_EQ(std::tuple(std::string(thePlayer.party[4]->name), std::string(info->nameField->Caption())),
            std::tuple("Mookie!", "Bluberd"));
  // A rename is kept when the screen is left.
  game->Click(100, 60);
  game->Type("\b\b\b\b\b\b\bPuff");
  EXPECT_STREQ(info->nameField->Caption(), "Puff");
  game->Click(590, 355);  // EXIT
  EXPECT_EQ(std::tuple(Top(), std::string(thePlayer.party[2]->name)), std::tuple("MAP_MODE", "Puff"));
}

TEST_F(WorldTest, ATowerBeforeAndAfterItsBattle) {
  // Fainted parties stay out, and a beaten wizard's tower does not open.
  thePlayer.party[0]->hitPoints = 0;
  game->Click(320, 140);
  EXPECT_EQ(std::tuple(Top(), std::string(thePlayer.currentLocation->name)), std::tuple("MAP_MODE", "Earth Wizard"));
  thePlayer.party[0]->hitPoints = 3;
  thePlayer.wizardDefeated[0] = 1;
  game->Click(320, 140);
  EXPECT_EQ(Top(), "MAP_MODE");
  thePlayer.wizardDefeated[0] = 0;
  game->Click(320, 140);
  ASSERT_EQ(Top(), "TOWER MODE");
  auto* tower = static_cast<TowerScreen*>(currentScreen);
  EXPECT_STREQ(tower->Speech(), "I am the Wizard of Earth.  You have come to challenge me, for I know much about the "
                                "land of Orlavene.  Very well, let's begin!");
  game->Key(platform::VK_RETURN);  // "Battle!"
  ASSERT_EQ(Top(), "COMBAT MODE");
  auto* combat = static_cast<CombatMode*>(currentScreen);
  EXPECT_EQ(std::tuple(combat->opponentCount, std::string(combat->opponent->name), combat->catchAllowed),
            std::tuple(2, "Spiner", 0));
  // A retreat: the taunt, and nothing opens.
  game->RunFor(3000);
  ASSERT_EQ(combat->phase, kPhaseWaiting);
  game->backend.LeftClick(590, 357);
  game->RunFor(3000);
  ASSERT_EQ(Top(), "TOWER MODE");
  EXPECT_STREQ(tower->widgets.FindById(0)->Caption(), "Leave Tower");
  EXPECT_STREQ(tower->Speech(), "Hah! Come back when you have tougher Kindrels!");
  EXPECT_EQ(std::pair(locationTable[10].open, thePlayer.wizardDefeated[0]), std::pair(0, 0));

  // A won battle, as the combat leaves it: the defeat speech and the next tier open.
  combatResult = 0;
  tower->Activate();
  // Beach Caves and the Storm Wizard open, not the tier after.
  const LocationInfo* places = locationTable;
  EXPECT_EQ((std::vector{thePlayer.wizardDefeated[0], places[2].open, places[10].open, places[11].open}),
            (std::vector{1, 1, 1, 0}));
  EXPECT_EQ(std::string(tower->Speech()).rfind("You have defeated my Kindrels.", 0), 0u);
  game->Key(platform::VK_RETURN);  // "Leave Tower"
  EXPECT_EQ(Top(), "MAP_MODE");

  // The map now shows the beaten tower with "Defeated" over it in red.
  game->RunFor(100);
  int red = 0;
  for (int y = 130; y < 150; ++y)
    for (int x = 260; x < 380; ++x) red += game->backend.LastFrame()[y * 640 + x] == platform::Rgb565(255, 0, 0);
  EXPECT_GT(red, 20);
}

TEST_F(WorldTest, ATowersTeamSharesLevelsBySpecies) {
  // The Ocean Wizard's two Achtwuo fight at the later one's level.
  game->Push(new TowerScreen(1, "TOWER MODE", 2));
  game->Key(platform::VK_RETURN);
  ASSERT_EQ(Top(), "COMBAT MODE");
  EXPECT_EQ(speciesTable[11].encounterLevel, 8);
}

using Request = platform::HeadlessAudio::Request;

// The map of the built game's data, in Genwood Forest.
class MazeTest : public WorldTest {
 protected:
  void SetUp() override {
    platform::SetDataRoot(QUARNWICK_BUILD_DIR);
    Start(HeadlessGame::Sound::Off, 1);
  }
  // Pushes the maze of a test area above the map, as a click on a wild area does.
  MazeScreen* Enter(const char* area) {
    path = std::string(QUARNWICK_TEST_DATA) + "/areas/" + area;
    game->backend.MouseMove(600, 470);
    game->Push(new MazeScreen(1, "MAZE MODE", path.c_str()));
    return dynamic_cast<MazeScreen*>(currentScreen);
  }
  // Keys, each with time for a step to end (seven frames).
  void Keys(std::initializer_list<std::uint32_t> keys) {
    for (std::uint32_t key : keys) {
      game->backend.KeyPress(key);
      game->RunFor(300);
    }
  }
  // The pointer over the cell; where it is.
  platform::LParam PointAt(MazeScreen* maze, MazeCell cell) {
    int sx, sy;
    maze->ScreenPoint(cell, &sx, &sy);
    game->backend.MouseMove(sx, sy - 14);
    game->RunFor(50);
    return platform::PackPoint(sx, sy - 14);
  }
  static std::pair<int, int> Origin(const MazeScreen* maze) { return {maze->grid.originX, maze->grid.originY}; }
  // The text of the event screen on top, if one is.
  std::string Shown() const {
    auto* event = dynamic_cast<EventScreen*>(currentScreen);
    return event ? event->ShownText() : "no event but " + Top();
  }
  // Whether a count toward the next encounter is a fresh one.
  static bool Fresh(int steps) { return steps >= 15 && steps <= 24; }
  CombatMode* Combat() const { return dynamic_cast<CombatMode*>(currentScreen); }
  // Casts the first spell until the combat has gone.
  void FightToTheEnd() {
    for (int t = 0; t < 600 && Combat(); ++t) {
      if (Combat()->phase == kPhaseWaiting) game->backend.LeftClick(100, 210);
      game->RunFor(100);
    }
    ASSERT_EQ(Combat(), nullptr);
  }

  std::string path;
};

constexpr std::uint32_t kUp = platform::VK_UP, kDown = platform::VK_DOWN, kLeft = platform::VK_LEFT,
                        kRight = platform::VK_RIGHT, kEnter = platform::VK_RETURN;

TEST_F(MazeTest, OnlyRealStepsCountAndTheFirstEncounterComesAfterFifteenToTwentyFour) {
  MazeScreen* maze = Enter("walk.dat");
  ASSERT_NE(maze, nullptr);
  EXPECT_EQ(maze->playerCell, (MazeCell{6, 8}));
  const int countdown = maze->stepsToEncounter;
  EXPECT_TRUE(Fresh(countdown)) << countdown;

  Keys({kLeft});  // off the grid
  EXPECT_EQ(maze->playerCell, (MazeCell{6, 8}));
  // A second request while the first step is animating is dropped.
  game->backend.KeyPress(kRight);
  game->backend.KeyPress(kUp);
  game->RunFor(300);
  EXPECT_EQ(std::pair(maze->playerCell, maze->facing), std::pair(MazeCell{6, 7}, 0));
  Keys({kUp, kLeft});  // (5, 7), then a wall
  EXPECT_EQ(std::tuple(maze->playerCell, maze->previousCell, maze->facing, maze->stepsToEncounter),
            std::tuple(MazeCell{5, 7}, MazeCell{6, 7}, 2, countdown - 2));

  // Up the corridor into area a, then back and forth until a Kindrel attacks.
  int counted = 2;
  Keys({kRight, kRight, kRight, kUp});
  counted += 4;
  for (int i = 0; Top() == "MAZE MODE" && i < 40; ++i) {
    const MazeCell before = maze->playerCell;
    Keys({i % 2 == 0 ? kRight : kLeft});
    ++counted;
    if (Top() == "COMBAT MODE") {
      EXPECT_EQ(maze->playerCell, before) << "the step is taken back";
    }
  }
  ASSERT_EQ(Top(), "COMBAT MODE");
  EXPECT_EQ(counted, countdown);
  CombatMode* combat = Combat();
  EXPECT_LE(combat->opponent->species->index, 6);
  EXPECT_LE(combat->opponent->level, 2);
  EXPECT_EQ(combat->catchAllowed, 1);
  EXPECT_EQ(combat->playerX, 168.0f) << "an area without COMBATLOC leaves the combat its own places";

  // A retreat: back in the maze where the figure stood, counting anew.
  for (int t = 0; t < 100 && combat->phase != kPhaseWaiting; ++t) game->RunFor(100);
  game->backend.LeftClick(590, 357);
  game->RunFor(3000);
  EXPECT_EQ(Top(), "MAZE MODE");
  EXPECT_EQ(combatResult, 2);
  EXPECT_TRUE(Fresh(maze->stepsToEncounter)) << maze->stepsToEncounter;
}

TEST_F(MazeTest, EncountersDrawFromTheLastAreaAndOutsideEveryAreaTheCountRestartsSilently) {
  MazeScreen* maze = Enter("walk.dat");
  Keys({kRight, kUp, kRight, kRight});  // (5, 5): no area
  maze->stepsToEncounter = 1;
  Keys({kDown});
  EXPECT_EQ(Top(), "MAZE MODE");
  EXPECT_EQ(maze->playerCell, (MazeCell{6, 5}));
  EXPECT_TRUE(Fresh(maze->stepsToEncounter)) << maze->stepsToEncounter;

  // Many encounters at once, each taken back at once.
  auto meet = [&](MazeCell from, int dx, int dy) {
    maze->playerCell = from;
    maze->walking = 0;
    maze->stepsToEncounter = 1;
    maze->StepRequest(dx, dy, 0);
    auto* combat = dynamic_cast<CombatMode*>(pendingScreen);
    EXPECT_NE(combat, nullptr);
    EXPECT_EQ(std::pair(maze->playerCell, maze->walking), std::pair(from, 0));
    const std::pair<int, int> met{combat ? combat->opponent->species->index : -1, combat ? combat->opponent->level : -1};
    delete pendingScreen;
    pendingScreen = nullptr;
    maze->state = kStateNone;
    combatResult = 2;
    return met;
  };
  std::set<int> species, levels;
  for (int i = 0; i < 100; ++i) {
    const auto [s, level] = meet({4, 4}, 0, -1);
    species.insert(s);
    levels.insert(level);
  }
  EXPECT_EQ(species, (std::set<int>{0, 1, 2, 3, 4, 5, 6})) << "both ends of the species range";
  EXPECT_EQ(levels, (std::set<int>{1, 2})) << "never the top of the level range";
  for (int i = 0; i < 20; ++i) EXPECT_EQ(meet({3, 4}, 0, -1), (std::pair<int, int>{30, 5})) << "b lies over a";
}

// Any ranges a file gives are drawn by the one formula, reversed ones too, with one random
// call for the species and one for a level range that is not a single value; only what the
// game cannot hold is mended afterwards.
TEST(EncounterDrawTest, EveryRangeFollowsTheFormulaWithItsRandomCalls) {
  struct Case {
    std::int32_t speciesMin, speciesMax, levelMin, levelMax;
    std::set<int> species, levels;
    int calls;
  };
  const Case cases[] = {
      {6, 0, 5, 3, {6, 7, 8, 9, 10}, {5, 6}, 2},       // reversed: the remainder reaches above the minimum
      {3, 2, 4, 4, {3}, {4}, 1},                       // a zero remainder's range gives its minimum
      {33, 40, -7, -7, {33, 34, 35}, {1}, 1},          // beyond the table; below level 1
      {INT_MIN, INT_MAX, INT_MAX - 1, INT_MAX, {0}, {kMostEncounterLevel}, 2},  // no overflow
  };
  for (const Case& c : cases) {
    EncounterArea area('a');
    area.speciesMin = c.speciesMin, area.speciesMax = c.speciesMax;
    area.levelMin = c.levelMin, area.levelMax = c.levelMax;
    std::set<int> species, levels;
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
      SeedRandom(seed);
      const EncounterDraw met = DrawEncounter(area);
      species.insert(met.species);
      levels.insert(met.level);
      const std::uint32_t after = RandomState();
      SeedRandom(seed);
      for (int i = 0; i < c.calls; ++i) Rand();
      ASSERT_EQ(after, RandomState()) << c.speciesMin << ".." << c.speciesMax << " seed " << seed;
    }
    EXPECT_EQ(species, c.species) << c.speciesMin << ".." << c.speciesMax;
    EXPECT_EQ(levels, c.levels) << c.levelMin << ".." << c.levelMax;
  }
}

TEST_F(MazeTest, AWonCombatKeepsTheWalkAndALostOneEndsIt) {
  thePlayer.party[0] = Kindrel::Create(35, 60);
  MazeScreen* maze = Enter("walk.dat");
  Keys({kRight, kUp, kRight, kRight, kRight});  // (5, 4)
  maze->stepsToEncounter = 1;
  Keys({kUp});  // into a
  ASSERT_EQ(Top(), "COMBAT MODE");
  FightToTheEnd();
  EXPECT_EQ(std::pair(combatResult, Top()), std::pair(0, std::string("MAZE MODE")));
  EXPECT_EQ(maze->playerCell, (MazeCell{5, 4}));

  thePlayer.party[0] = Kindrel::Create(4, 1);
  maze->stepsToEncounter = 1;
  maze->playerCell = {3, 4};
  Keys({kRight});  // into b: a level-5 Buttaree
  ASSERT_EQ(Top(), "COMBAT MODE");
  FightToTheEnd();
  EXPECT_EQ(std::pair(combatResult, Top()), std::pair(1, std::string("MAP_MODE")));
}

TEST_F(MazeTest, EventsShowTheirTextsLockTheirCellsAndGiveTheirItems) {
  MazeScreen* maze = Enter("walk.dat");
  Keys({kRight, kUp, kRight, kRight, kRight, kRight, kRight});  // (5, 2)
  const int countdown = maze->stepsToEncounter;
  Keys({kDown});  // M: a sign
  EXPECT_EQ(Shown(), "A signpost: the path goes on to the north.");
  Keys({kEnter});
  EXPECT_EQ(Top(), "MAZE MODE");
  EXPECT_EQ(maze->playerCell, (MazeCell{6, 2}));
  EXPECT_EQ(maze->walking, 0) << "the step ran to its end";
  EXPECT_EQ(maze->stepsToEncounter, countdown) << "an event's step is not counted";

  Keys({kDown, kDown});  // K, without a key
  EXPECT_EQ(Shown(), "The gate is locked.");
  Keys({kEnter});
  EXPECT_EQ(maze->playerCell, (MazeCell{7, 2})) << "back on the cell before";
  EXPECT_TRUE(ItemNames(thePlayer).empty());
  // A held item whose name begins with the need opens the gate, in any letter case.
  thePlayer.AddItem("KEY OF FIRE");
  Keys({kDown});
  EXPECT_EQ(Shown(), "The gate swings open.");
  Keys({kEnter});
  EXPECT_EQ(maze->playerCell, (MazeCell{8, 2}));

  // G gives once; L's "Flute" is held already as "Flute of Wind"; f's "flute" is not.
  Keys({kUp, kLeft, kLeft, kUp, kEnter, kDown, kUp, kEnter, kDown, kDown, kEnter});
  EXPECT_EQ(maze->playerCell, (MazeCell{8, 4}));
  Keys({kUp, kUp, kEnter, kUp, kRight, kRight, kRight});
  EXPECT_EQ(Shown(), "A small flute, hidden in the moss.");
  Keys({kEnter});
  EXPECT_EQ(ItemNames(thePlayer), (std::vector<std::string>{"KEY OF FIRE", "Gate Pass", "Flute of Wind", "flute"}));
}

// A wall picture far taller than ours still shows wherever it reaches the screen, however
// far below it the cell's own point lies.
TEST_F(MazeTest, TallArtIsDrawnWhereverItReachesTheScreen) {
  MazeScreen* maze = Enter("walk.dat");
  maze->wallPicture.CreateBlank(109, 400);
  const std::uint16_t red = theDisplay->MatchColour(maze->wallPicture.surface.get(), PackColour(200, 30, 30));
  maze->wallPicture.surface->Fill({0, 0, 109, 400}, red);
  maze->grid.originX = 320;
  maze->grid.originY = 720;  // every cell's point below the screen
  game->RunFor(100);
  const std::vector<std::uint16_t>& frame = game->backend.LastFrame();
  int walls = 0;
  for (int y = 330; y < 480; ++y) walls += frame[static_cast<std::size_t>(y) * 640 + 320] == red;
  EXPECT_GT(walls, 140) << "of 150 pixels of the column under the top wall";
}

TEST_F(MazeTest, ExitsTheViewAndTheMouse) {
  MazeScreen* maze = Enter("walk.dat");
  EXPECT_EQ(Origin(maze), (std::pair{2 * 54 + 320, 240 - 14 * 14})) << "centred on the start";
  // The cell under the pointer and the direction to it.
  PointAt(maze, {6, 6});
  EXPECT_EQ(std::tuple(maze->cursorCell, maze->pointerDirection), std::tuple(MazeCell{6, 6}, 0));
  PointAt(maze, {7, 8});
  EXPECT_EQ(maze->pointerDirection, 2);

  // Holding the left button walks toward the pointer, step after step, until a wall; near
  // the edge of the screen the view centres on the figure again.
  Keys({kRight});  // (6, 7)
  const platform::LParam point = PointAt(maze, {2, 7});
  game->backend.Queue(platform::WM_LBUTTONDOWN, 1, point);
  game->RunFor(2500);
  game->backend.Queue(platform::WM_LBUTTONUP, 0, point);
  game->RunFor(300);
  EXPECT_EQ(std::pair(maze->playerCell, maze->facing), std::pair(MazeCell{1, 7}, 2));
  EXPECT_EQ(Origin(maze), (std::pair{(7 - 1) * 54 + 320, 240 - 8 * 14}));

  // A right-button drag moves the whole maze with the pointer; the next step far off the
  // middle centres the view again.
  game->backend.Queue(platform::WM_RBUTTONDOWN, 2, platform::PackPoint(300, 300));
  game->backend.MouseMove(500, 250);
  game->backend.Queue(platform::WM_RBUTTONUP, 0, platform::PackPoint(500, 250));
  game->RunFor(100);
  EXPECT_EQ(Origin(maze), (std::pair{(7 - 1) * 54 + 320 + 200, 240 - 8 * 14 - 50}));
  Keys({kDown});  // (2, 7), now at sx > 512
  EXPECT_EQ(Origin(maze), (std::pair{(7 - 2) * 54 + 320, 240 - 9 * 14}));
  EXPECT_EQ(maze->cursorCell, (MazeCell{2, 7}));

  // The other exit leaves too.
  Keys({kDown, kDown, kRight});  // (4, 6)
  EXPECT_EQ(Top(), "MAP_MODE");
}

TEST_F(MazeTest, EnterShowsTheFirstKindrelWhileTheAmbientSoundPlaysOn) {
  Start(HeadlessGame::Sound::On, 1);
  Enter("walk.dat");
  auto& audio = game->backend.AudioOutput();
  auto loopingPlays = [&] {
    std::vector<int> buffers;
    for (const auto& call : audio.CallsOf(Request::Play))
      if (call.value == 1) buffers.push_back(call.buffer);
    return buffers;
  };
  ASSERT_FALSE(loopingPlays().empty());
  const int ambient = loopingPlays().back();
  EXPECT_TRUE(audio.IsPlaying(ambient));
  const std::size_t plays = loopingPlays().size();
  game->backend.MouseMove(600, 100);  // far from the invisible party button
  Keys({kEnter});
  ASSERT_EQ(Top(), "INSPECT_MODE");
  EXPECT_TRUE(audio.IsPlaying(ambient));
  game->backend.LeftClick(590, 355);  // EXIT
  game->RunFor(100);
  EXPECT_EQ(Top(), "MAZE MODE");
  EXPECT_TRUE(audio.IsPlaying(ambient));
  EXPECT_EQ(loopingPlays().size(), plays) << "the ambient sound was not started again";
  Keys({kRight});
  Keys({kLeft});  // back onto the start: the walk ends, and its sound with it
  EXPECT_EQ(Top(), "MAP_MODE");
  EXPECT_TRUE(audio.Buffers().at(static_cast<std::size_t>(ambient - 1)).released);
}

TEST_F(MazeTest, TheMapOpensAMazeForAFighterAndAnAreaThatCannotBeWalkedIsToldAndLeft) {
  const auto empty = std::filesystem::temp_directory_path() / ("quarnwick-maze-" + std::to_string(::getpid()));
  std::filesystem::create_directories(empty);
  platform::SetDataRoot(empty.string());
  thePlayer.party[0]->hitPoints = 0;
  game->backend.LeftClick(320, 242);
  game->RunFor(100);
  EXPECT_EQ(Top(), "MAP_MODE") << "nobody can fight";
  thePlayer.party[0]->hitPoints = 3;
  testing::internal::CaptureStderr();
  game->backend.LeftClick(320, 242);
  game->RunFor(200);
  const std::string said = testing::internal::GetCapturedStderr();
  ASSERT_EQ(Top(), "INFO_MODE");
  const std::string text = "Genwood Forest cannot be entered: dat/genwood.dat is missing.";
  EXPECT_EQ(static_cast<MessageScreen*>(currentScreen)->text, text);
  EXPECT_NE(said.find(text), std::string::npos);
  Keys({kEnter});
  EXPECT_EQ(Top(), "MAP_MODE");
  std::filesystem::remove_all(empty);

  platform::SetDataRoot(QUARNWICK_BUILD_DIR);
  testing::internal::CaptureStderr();
  Enter("noexit.dat");
  testing::internal::GetCapturedStderr();
  ASSERT_EQ(Top(), "INFO_MODE");
  EXPECT_EQ(static_cast<MessageScreen*>(currentScreen)->text,
            "Genwood Forest cannot be entered: " + path + " has no exit.");
}

}  // namespace
