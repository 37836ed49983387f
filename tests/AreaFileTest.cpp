// The area file reader on small files of tests/data/areas: the grammar's worked example,
// a file full of quirks (keyword case and prefixes, comments, short lines, Windows line
// ends, repeated texts, rows longer and shorter than the grid, areas of odd shapes), and
// the bounds of a line read.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/AtomicFile.h"
#include "ui/List.h"
#include "world/AreaFile.h"

namespace {

struct ReadFile {
  explicit ReadFile(const std::string& content) {
    PreScanArea(content, &width, &height);
    grid.Create(width, height);
    ReadArea(content, grid, entries, values, &repairs);
    for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) order.push_back(entry);
  }
  MazeEvent* Event(int i) { return dynamic_cast<MazeEvent*>(order.at(i)); }
  EncounterArea* Area(int i) { return dynamic_cast<EncounterArea*>(order.at(i)); }
  std::string Row(int y) {
    std::string row;
    for (int x = 0; x < grid.width; ++x) row += static_cast<char>(grid.At(x, y));
    return row;
  }

  int width = -1, height = -1;
  MazeGrid grid;
  List entries;
  AreaValues values;
  AreaRepairs repairs;
  std::vector<ScreenObject*> order;
};

std::string TestArea(const char* name) {
  std::string content, reason;
  EXPECT_TRUE(LoadAreaText((std::string(QUARNWICK_TEST_DATA) + "/areas/" + name).c_str(), &content, &reason))
      << name << " " << reason;
  return content;
}

void ExpectRectangle(const EncounterArea* area, int left, int top, int right, int bottom) {
  ASSERT_NE(area, nullptr);
  EXPECT_EQ(area->left, left);
  EXPECT_EQ(area->top, top);
  EXPECT_EQ(area->right, right);
  EXPECT_EQ(area->bottom, bottom);
}

TEST(AreaFileTest, TheWorkedExampleReadsAsTheGrammarSays) {
  ReadFile file(TestArea("worked.dat"));
  EXPECT_EQ(file.width, 7);
  EXPECT_EQ(file.height, 5);
  int x = -1, y = -1;
  ASSERT_TRUE(FindStartCell(file.grid, &x, &y));
  EXPECT_EQ(x, 3);
  EXPECT_EQ(y, 4);
  ASSERT_EQ(file.order.size(), 2u);
  MazeEvent* gate = file.Event(0);
  ASSERT_NE(gate, nullptr);
  EXPECT_EQ(gate->Symbol(), 'B');
  EXPECT_STREQ(gate->GetName(), "EVENT");
  EXPECT_EQ(gate->x, 5);
  EXPECT_EQ(gate->y, 1);
  EXPECT_STREQ(gate->needs, "Golden Key");
  EXPECT_STREQ(gate->needText, "The gate is locked.");
  EXPECT_STREQ(gate->mainText, "The gate swings open.");
  EXPECT_STREQ(gate->gives, "Silver Flute");
  EncounterArea* area = file.Area(1);
  ExpectRectangle(area, 1, 1, 3, 2);
  EXPECT_STREQ(area->GetName(), "AREA");
  EXPECT_EQ(area->speciesMin, 0);
  EXPECT_EQ(area->speciesMax, 6);
  EXPECT_EQ(area->levelMin, 1);
  EXPECT_EQ(area->levelMax, 3);
  EXPECT_STREQ(file.values.wallFile, "dat\\wall.bmp");
  EXPECT_STREQ(file.values.floorFile, "dat\\floor.bmp");
  EXPECT_STREQ(file.values.combatBackground, "dat\\comback-scar-for.bmp");
  EXPECT_EQ(std::vector<int>(file.values.combatPositions, file.values.combatPositions + 4),
            (std::vector<int>{160, 300, 480, 300}));
  for (std::uint8_t flag : file.grid.visible) EXPECT_EQ(flag, 1);
  EXPECT_EQ(file.repairs.rowsCut + file.repairs.rowsShort + file.repairs.rowsUnended + file.repairs.oneCellAreas, 0);
}

TEST(AreaFileTest, KeywordsCommentsRowsAndAreasOfEveryShape) {
  ReadFile file(TestArea("quirks.dat"));
  // Six ROW lines in four spellings; the last gives the width. A longer row is cut at it,
  // a shorter one leaves walls.
  EXPECT_EQ(file.width, 10);
  EXPECT_EQ(file.height, 6);
  EXPECT_EQ(file.Row(1), "1EEE0b2x29");
  EXPECT_EQ(file.Row(2), "1c0b000111");
  EXPECT_EQ(file.Row(5), "1111d11111");
  int x = -1, y = -1;
  ASSERT_TRUE(FindStartCell(file.grid, &x, &y));
  EXPECT_EQ(x, 8) << "the later of two exits is the start";
  EXPECT_EQ(y, 1);

  // Entries in the order in which they were finished.
  std::vector<std::string> order;
  for (ScreenObject* entry : file.order) order.push_back(std::string(entry->GetName()) + static_cast<char>(entry->id));
  EXPECT_EQ(order, (std::vector<std::string>{"AREAc", "EVENTE", "AREAd", "AREAb", "EVENTz", "AREAx"}));

  MazeEvent* e = file.Event(1);
  EXPECT_EQ(e->x, 3) << "an event on three cells sits on the last";
  EXPECT_EQ(e->y, 1);
  EXPECT_STREQ(e->mainText, "goes to the event E, not to the area") << "text after an AREA line";
  EXPECT_STREQ(e->needs, "a") << "NEEDSX is NEEDS";
  EXPECT_STREQ(e->gives, "") << "a keyword without an argument is ignored";
  MazeEvent* unused = file.Event(4);
  EXPECT_EQ(unused->x, -1);
  EXPECT_EQ(unused->y, -1);

  ExpectRectangle(file.Area(0), 1, 2, 5, 4);
  EXPECT_EQ(file.Area(0)->speciesMin, 2);
  EXPECT_EQ(file.Area(0)->levelMax, 4);
  ExpectRectangle(file.Area(2), 2, 3, 4, 5);
  EncounterArea* diagonal = file.Area(3);
  ExpectRectangle(diagonal, 5, 1, 3, 2);
  for (int cy = 0; cy < file.height; ++cy)
    for (int cx = 0; cx < file.width; ++cx) EXPECT_FALSE(diagonal->Contains(cx, cy)) << cx << "," << cy;
  ExpectRectangle(file.Area(5), 7, 1, 7, 1);  // one cell
  EXPECT_TRUE(file.Area(5)->Contains(7, 1));

  EXPECT_STREQ(file.values.wallFile, "dat\\w.bmp") << "ARTWORK is ART";
  EXPECT_STREQ(file.values.floorFile, "dat\\f.bmp");
  EXPECT_EQ(std::vector<int>(file.values.combatPositions, file.values.combatPositions + 4),
            (std::vector<int>{1, 2, 0, 0}))
      << "numbers after an unreadable one keep their values";
  EXPECT_STREQ(file.values.combatBackground, "dat\\comback-scar-for.bmp");
  EXPECT_EQ(file.repairs.rowsCut, 1);
  EXPECT_EQ(file.repairs.rowsShort, 1);
  EXPECT_EQ(file.repairs.oneCellAreas, 1);
}

TEST(AreaFileTest, ReadsAreBoundedAndALastLineWithoutItsEndLosesACharacter) {
  // A last line without a line end loses its last character: no exit is left.
  ReadFile cut(TestArea("noexit-end.dat"));
  EXPECT_EQ(cut.width, 1);
  EXPECT_EQ(cut.Row(1), "1");
  EXPECT_EQ(cut.repairs.rowsUnended, 1);
  int x, y;
  EXPECT_FALSE(FindStartCell(cut.grid, &x, &y));

  // A line longer than one read goes on as a line of its own, which here is no keyword.
  ReadFile longRow("ROW " + std::string(3000, '0') + "2\n");
  EXPECT_EQ(longRow.height, 1);
  EXPECT_EQ(longRow.width, 2046 - 4 - 1);

  // Texts are cut to their fields; a NUL ends what is seen of a line.
  ReadFile texts("EVENT A\nNEEDS " + std::string(1500, 'k') + "\nGIVES Flute" + std::string(1, '\0') +
                 "of Wind\nCOMBATART " + std::string(200, 'p') + "\n");
  ASSERT_EQ(texts.order.size(), 1u);
  EXPECT_EQ(std::string(texts.Event(0)->needs), std::string(1023, 'k'));
  EXPECT_STREQ(texts.Event(0)->gives, "Flute");
  EXPECT_EQ(std::string(texts.values.combatBackground), std::string(127, 'p'));

  std::string content, reason;
  EXPECT_FALSE(LoadAreaText("/nowhere/genwood.dat", &content, &reason));
  EXPECT_EQ(reason, "is missing");
}

}  // namespace
