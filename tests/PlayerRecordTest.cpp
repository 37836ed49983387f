// The player's record and its saved games: the defaults of the program's start, the
// new-game reset, the party's slots and the rules of the places' open flags; the file of
// a new game line by line, round trips of everything a file holds, the name a save gets,
// a failed write that keeps the earlier save, and every kind of broken file refused
// without touching the game.
#include <cerrno>
#include <cstring>
#include <set>
#include <sstream>

#include "ShowcaseParty.h"
#include "persist/SavedGame.h"
#include "platform/AtomicFile.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "world/LocationTable.h"

namespace {

namespace fs = std::filesystem;

std::set<std::string> OpenPlaces() {
  std::set<std::string> open;
  for (const LocationInfo& place : locationTable)
    if (place.open) open.insert(place.name);
  return open;
}

// The options and the progress: difficulty, text speed, the player's sex, the first catch,
// and the wizards beaten.
auto Settings(const PlayerRecord& r) {
  return std::tuple(r.difficulty, r.textSpeed, r.playerIsMale, r.firstCatchDone,
                    std::vector<int>(std::begin(r.wizardDefeated), std::end(r.wizardDefeated)));
}

// The location table's open flags are the game's own: every test leaves them as it found
// them.
class PartyRecordTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (int row = 0; row < kLocationCount; ++row) saved[row] = locationTable[row].open;
  }
  void TearDown() override {
    for (int row = 0; row < kLocationCount; ++row) locationTable[row].open = saved[row];
  }
  int saved[kLocationCount] = {};
};

TEST_F(PartyRecordTest, DefaultsAndTheNewGame) {
  PlayerRecord record;
  const std::vector<int> noneBeaten(std::size(record.wizardDefeated), 0);
  EXPECT_EQ(Settings(record), std::tuple(kNormal, 5, 1, 0, noneBeaten));
  EXPECT_EQ(std::tuple(record.PartyCount(), record.items.IsEmpty()), std::tuple(0, true));

  // A game in progress with options, items, beaten wizards and a full party.
  record.difficulty = kHard;
  record.textSpeed = 9;
  record.playerIsMale = 0;
  record.firstCatchDone = 1;
  record.wizardDefeated[0] = record.wizardDefeated[3] = 1;
  record.AddItem("Brass Key");
  record.AddItem("Old Map");
  for (int slot = 0; slot < kPartySize; ++slot) record.party[slot] = Kindrel::Create(slot, 3);
  for (LocationInfo& place : locationTable) place.open = 1;

  record.StartNewGame();
  // The options and the items are left alone; everything else starts over: Mookie alone at
  // home, five places open.
  EXPECT_EQ(Settings(record), std::tuple(kHard, 9, 0, 0, noneBeaten));
  EXPECT_EQ(ItemNames(record), (std::vector<std::string>{"Brass Key", "Old Map"}));
  EXPECT_EQ(record.PartyCount(), 1);
  ASSERT_NE(record.party[0], nullptr);
  EXPECT_EQ(std::tuple(std::string(record.party[0]->name), record.party[0]->level, LocationRow(record.currentLocation),
                       OpenPlaces().size()),
            std::tuple("Mookie", 1, 0, 5u));

  // The reset alone empties the party and sets nothing else in its place.
  record.NewGameReset();
  EXPECT_EQ(std::tuple(record.PartyCount(), record.FirstFitSlot(), record.HasFighter()), std::tuple(0, -1, false));
}

TEST_F(PartyRecordTest, PartySlots) {
  PlayerRecord record;
  EXPECT_EQ(std::tuple(record.FirstEmptySlot(), record.FirstFitSlot()), std::tuple(0, -1));

  // A gap: slots 0 and 2 hold creatures; a caught creature fills slot 1 first.
  record.party[0] = Kindrel::Create(0, 1);
  record.party[2] = Kindrel::Create(1, 1);
  EXPECT_EQ(record.FirstEmptySlot(), 1);
  EXPECT_EQ(record.AddToParty(Kindrel::Create(2, 4)), 1);
  ASSERT_NE(record.party[1], nullptr);
  EXPECT_EQ(record.party[1]->level, 4);
  EXPECT_EQ(std::tuple(record.FirstEmptySlot(), record.PartyCount()), std::tuple(3, 3));

  // The first creature able to fight.
  record.party[0]->hitPoints = 0;
  EXPECT_EQ(record.FirstFitSlot(), 1);
  record.party[1]->hitPoints = 0;
  record.party[2]->hitPoints = 0;
  EXPECT_EQ(record.FirstFitSlot(), -1);
  EXPECT_FALSE(record.HasFighter());

  // A full party takes no one more.
  for (int slot = 0; slot < kPartySize; ++slot)
    if (!record.party[slot]) record.party[slot] = Kindrel::Create(slot, 1);
  EXPECT_EQ(record.FirstEmptySlot(), -1);
  EXPECT_EQ(record.AddToParty(Kindrel::Create(9, 1)), -1);
  EXPECT_EQ(record.PartyCount(), kPartySize);
  record.ReleaseParty();
  EXPECT_EQ(record.PartyCount(), 0);
}

TEST_F(PartyRecordTest, ShowcaseParty) {
  PlayerRecord record;
  record.party[0] = Kindrel::Create(7, 1);
  FillShowcaseParty(record);
  ASSERT_EQ(record.PartyCount(), kPartySize);
  std::set<const SpeciesInfo*> species;
  int fainted = 0, red = 0, yellow = 0;
  for (const auto& creature : record.party) {
    species.insert(creature->species);
    if (creature->hitPoints <= 0) {
      ++fainted;
      continue;
    }
    red += creature->HitPointColour() == PackColour(255, 0, 0);
    yellow += creature->HitPointColour() == PackColour(255, 255, 0);
  }
  EXPECT_EQ(species.size(), static_cast<std::size_t>(kPartySize));
  EXPECT_EQ(fainted, 1);
  EXPECT_EQ(red, 1);
  EXPECT_EQ(yellow, 1);
  EXPECT_STREQ(record.party[0]->name, "Mookie");
}

TEST_F(PartyRecordTest, OpenFlags) {
  ResetLocationsForNewGame();
  const std::set<std::string> newGame{"Home", "Genwood Forest", "Temple of Knowledge", "Market", "Earth Wizard"};
  EXPECT_EQ(OpenPlaces(), newGame);

  // Beating each wizard in turn opens exactly the next wild area and the next tower.
  std::set<std::string> expected = newGame;
  for (int tier = 0; tier < 5; ++tier) {
    OpenNextTier(tier);
    int opened = 0;
    for (const LocationInfo& place : locationTable)
      if (place.tier == tier + 1) {
        ++opened;
        expected.insert(place.name);
        EXPECT_TRUE(IsWildArea(place) || place.kind == kLocationTower) << place.name;
      }
    EXPECT_EQ(opened, 2) << "tier " << tier + 1;
    EXPECT_EQ(OpenPlaces(), expected) << "after beating the wizard of tier " << tier;
  }
  EXPECT_EQ(expected.size(), static_cast<std::size_t>(kLocationCount));
  OpenNextTier(5);
  OpenNextTier(2);
  EXPECT_EQ(OpenPlaces(), expected) << "the last wizard opens nothing more, and a wizard beaten again nothing";

  // Beating a wizard out of order opens only its own next tier.
  ResetLocationsForNewGame();
  OpenNextTier(2);
  expected = newGame;
  expected.insert({"Ice Wizard", "Ice Caves"});
  EXPECT_EQ(OpenPlaces(), expected);
}

const char* const kNewGameFile =
    "320 200\n"
    "YES\n"
    "Mookie\n"
    "4 1 3 0\n"
    "NO\nNO\nNO\nNO\nNO\n"
    "1 1 0 0 0 0 0 1 1 1 0 0 0 0 0 \n"
    "0 0 0 0 0 0 \n"
    "1 1 5 0\n"
    "ITEMEND\n";

// The new game's file with one part changed.
std::string Edited(const char* from, const char* to) {
  std::string text = kNewGameFile;
  return text.replace(text.find(from), std::strlen(from), to);
}

std::string Slurp(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

class SavedGameTest : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::InstallBackend(&backend);
    ResetGameRecord();
    thePlayer.StartNewGame();
  }
  void TearDown() override {
    ResetGameRecord();
    platform::InstallBackend(nullptr);
  }
  std::string Path(const std::string& name) const { return (folder / name).string(); }
  std::string Saved() const { return FormatSavedGame(CaptureGame(thePlayer)); }

  TempFolder folder{"saves"};
  platform::HeadlessBackend backend;
};

TEST_F(SavedGameTest, ANewGameSavesAsItsWorkedFileWhichAFailedWriteKeepsAndLoadsBack) {
  ASSERT_TRUE(WriteSavedGame(Path("save1")));
  EXPECT_EQ(Slurp(folder / "save1.gam"), kNewGameFile);
  EXPECT_TRUE(backend.MessageBoxes().empty());
  thePlayer.party[0]->hitPoints = 1;
  thePlayer.textSpeed = 8;

  // A failed write keeps the earlier save and says why, naming the file.
  platform::FailNextFileWrites(1, ENOSPC);
  EXPECT_FALSE(WriteSavedGame(Path("save1")));
  EXPECT_EQ(Slurp(folder / "save1.gam"), kNewGameFile);
  ASSERT_EQ(backend.MessageBoxes().size(), 1u);
  EXPECT_FALSE(backend.MessageBoxes()[0].errorIcon);
  const std::string& box = backend.MessageBoxes()[0].text;
  EXPECT_NE(box.find((folder / "save1.gam").string()), std::string::npos) << box;
  EXPECT_NE(box.find("No space left on device"), std::string::npos) << box;
  // A folder that does not exist: refused with its reason, nothing made.
  EXPECT_FALSE(WriteSavedGame(Path("nowhere/save")));
  EXPECT_EQ(backend.MessageBoxes().size(), 2u);
  // Only the file and nothing left over beside it.
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);

  ASSERT_TRUE(ReadSavedGame(Path("save1.gam")));
  EXPECT_EQ(Saved(), kNewGameFile);
  EXPECT_EQ(thePlayer.party[0]->spellsKnown, 2);
  EXPECT_EQ(backend.MessageBoxes().size(), 2u);

  // A save over it keeps the one before as save1.gam.bak, one generation deep.
  thePlayer.textSpeed = 8;
  const std::string second = Saved();
  ASSERT_TRUE(WriteSavedGame(Path("save1")));
  EXPECT_EQ(std::pair(Slurp(folder / "save1.gam"), Slurp(folder / "save1.gam.bak")), std::pair(second, std::string(kNewGameFile)));
  thePlayer.textSpeed = 3;
  ASSERT_TRUE(WriteSavedGame(Path("save1")));
  EXPECT_EQ(Slurp(folder / "save1.gam.bak"), second);
}

TEST_F(SavedGameTest, EverythingAFileHoldsComesBack) {
  thePlayer.party[3] = Kindrel::Create(32, 7);
  thePlayer.party[3]->hitPoints = 0;  // fainted
  thePlayer.party[3]->experience = 3000000000u;  // above the largest signed number
  thePlayer.party[0]->hitPoints = 50;             // above its maximum, kept as it is
  thePlayer.party[3]->SetName("  100% Gradon");
  thePlayer.party[0]->SetName("%s%d");
  thePlayer.currentLocation = &locationTable[8];
  thePlayer.wizardDefeated[0] = 1;
  OpenNextTier(0);
  thePlayer.difficulty = kHard;
  thePlayer.playerIsMale = 0;
  thePlayer.firstCatchDone = 1;
  thePlayer.AddItem("Brass Key");
  thePlayer.AddItem("Old Map");
  const std::string before = Saved();
  ASSERT_TRUE(WriteSavedGame(Path("everything.txt")));
  EXPECT_TRUE(fs::exists(folder / "everything.gam"));

  thePlayer.StartNewGame();
  thePlayer.AddItem("Lost Thing");
  ASSERT_TRUE(ReadSavedGame(Path("everything.gam")));
  EXPECT_EQ(Saved(), before) << "the game as it was, empty slots, places and items included";
  // Names are written as they are, never read as formats.
  EXPECT_STREQ(thePlayer.party[3]->name, "  100% Gradon");
  EXPECT_STREQ(thePlayer.party[0]->name, "%s%d");
}

TEST_F(SavedGameTest, ReadingRulesOfTheFile) {
  // Windows line ends; numbers of one block on several lines; an item that ends the list.
  std::string text = Edited("4 1 3 0\n", "4\n1\n3 0\n");
  text.replace(text.find("ITEMEND\n"), 8, "Brass Key\nITEMEND-X\nOld Map\nITEMEND\n");
  std::string windows;
  for (char c : text) windows += c == '\n' ? std::string("\r\n") : std::string(1, c);
  auto game = ParseSavedGame(windows, nullptr);
  ASSERT_TRUE(game.has_value());
  EXPECT_EQ(game->party[0]->name, "Mookie") << "the carriage return is no part of the name";
  EXPECT_EQ(game->party[0]->hitPoints, 3);
  EXPECT_EQ(game->items, std::vector<std::string>{"Brass Key"});

  // Experience written as a negative number is its unsigned 32-bit value.
  EXPECT_EQ(ParseSavedGame(Edited("4 1 3 0\n", "4 1 3 -1294967296\n"), nullptr)->party[0]->experience, 3000000000u);

  // No end mark: the items end with the file.
  EXPECT_EQ(ParseSavedGame(Edited("ITEMEND\n", "Rope\n"), nullptr)->items, std::vector<std::string>{"Rope"});

  // A first line that names no map point keeps the current place.
  thePlayer.currentLocation = &locationTable[7];
  ApplySavedGame(*ParseSavedGame(Edited("320 200", "1 2"), nullptr), thePlayer);
  EXPECT_STREQ(thePlayer.currentLocation->name, "Temple of Knowledge");
}

TEST_F(SavedGameTest, TheNameOfASave) {
  for (const auto& [given, saved] : {std::pair{"", ""}, {"save1", "save1.gam"}, {"save1.txt", "save1.gam"},
                                     {"save1.gam", "save1.gam"},
                                     {"/home/me/games.v2/save1.old.gam", "/home/me/games.v2/save1.gam"}})
    EXPECT_EQ(FinalSaveName(given), saved) << given;
  fs::create_directories(folder / "games.v2");
  ASSERT_TRUE(WriteSavedGame(Path("games.v2/mine")));
  EXPECT_TRUE(fs::exists(folder / "games.v2" / "mine.gam"));
  EXPECT_FALSE(WriteSavedGame(""));
  EXPECT_TRUE(backend.MessageBoxes().empty()) << "an empty name writes nothing and says nothing";
}

TEST_F(SavedGameTest, BrokenFilesAreRefusedAndTheGameStays) {
  thePlayer.party[0]->SetName("Keeper");
  const std::string before = Saved();
  auto refused = [&](const std::string& text, const char* why) {
    std::ofstream(folder / "bad.gam", std::ios::binary) << text;
    const std::size_t boxes = backend.MessageBoxes().size();
    EXPECT_FALSE(ReadSavedGame(Path("bad.gam"))) << why;
    EXPECT_EQ(Saved(), before) << why;
    ASSERT_EQ(backend.MessageBoxes().size(), boxes + 1) << why;
    EXPECT_EQ(backend.MessageBoxes().back().caption, "Cannot load the game");
    EXPECT_FALSE(backend.MessageBoxes().back().errorIcon);
  };
  const std::string good = kNewGameFile;
  // Every cut of the file before its settings are whole.
  for (std::size_t n = 0; n < good.find("1 1 5 0") + 6; n += 3) refused(good.substr(0, n), "truncated");
  refused(Edited("4 1 3 0", "four 1 3 0"), "a word for a number");
  refused(Edited("4 1 3 0", "36 1 3 0"), "a species outside the table");
  refused(Edited("4 1 3 0", "-1 1 3 0"), "a negative species");
  refused(Edited("4 1 3 0", "4 0 3 0"), "level 0");
  refused(Edited("4 1 3 0", "4 1 10737419 0"), "more hit points than a bar can count");
  refused(Edited("4 1 3 0", "4 1 -1 0"), "negative hit points");
  refused(Edited("4 1 3 0", "4 1 3 4294967296"), "experience beyond 32 bits");
  refused(Edited("4 1 3 0", "4 1 3 99999999999999"), "an absurd number");
  refused(Edited("1 1 5 0", "1 1 11 0"), "text speed 11");
  refused(Edited("0 0 0 0 0 0 \n", "0 0 2 0 0 0 \n"), "a wizard's flag of 2");
  EXPECT_FALSE(ReadSavedGame(Path("missing.gam")));
  EXPECT_NE(backend.MessageBoxes().back().text.find("No such file"), std::string::npos);
  EXPECT_FALSE(ReadSavedGame(folder.string()));
  EXPECT_EQ(Saved(), before);
}

}  // namespace
