// The area file reader on small files of tests/data/areas: the grammar's worked example,
// a file full of quirks (keyword case and prefixes, comments, short lines, Windows line
// ends, repeated texts, rows longer and shorter than the grid, areas of odd shapes), and
// the bounds of a line read.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

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
  // Each entry in the order in which it was finished, as a line of everything it holds.
  std::vector<std::string> Entries() const {
    std::vector<std::string> lines;
    for (ScreenObject* entry : order) {
      std::ostringstream s;
      s << entry->GetName() << " " << static_cast<char>(entry->id);
      if (auto* e = dynamic_cast<MazeEvent*>(entry))
        s << " at " << e->x << "," << e->y << " needs '" << e->needs << "' or says '" << e->needText << "', says '"
          << e->mainText << "', gives '" << e->gives << "'";
      if (auto* a = dynamic_cast<EncounterArea*>(entry))
        s << " " << a->left << "," << a->top << " to " << a->right << "," << a->bottom << ", species "
          << a->speciesMin << " to " << a->speciesMax << ", levels " << a->levelMin << " to " << a->levelMax;
      lines.push_back(s.str());
    }
    return lines;
  }
  // The maze-wide values: the pictures and the combat's places.
  std::string Values() const {
    std::ostringstream s;
    s << values.wallFile << " " << values.floorFile << " " << values.combatBackground;
    for (int position : values.combatPositions) s << " " << position;
    return s.str();
  }
  std::vector<int> Start() const {
    int x = -1, y = -1;
    const bool found = FindStartCell(grid, &x, &y);
    return {found, x, y};
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

TEST(AreaFileTest, TheWorkedExampleReadsAsTheGrammarSays) {
  ReadFile file(TestArea("worked.dat"));
  EXPECT_EQ(file.width, 7);
  EXPECT_EQ(file.height, 5);
  EXPECT_EQ(file.Start(), (std::vector<int>{true, 3, 4}));
  EXPECT_EQ(file.Entries(), (std::vector<std::string>{
                                "EVENT B at 5,1 needs 'Golden Key' or says 'The gate is locked.', says 'The gate swings "
                                "open.', gives 'Silver Flute'",
                                "AREA a 1,1 to 3,2, species 0 to 6, levels 1 to 3"}));
  EXPECT_EQ(file.Values(), "dat\\wall.bmp dat\\floor.bmp dat\\comback-scar-for.bmp 160 300 480 300");
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
  EXPECT_EQ(file.Start(), (std::vector<int>{true, 8, 1})) << "the later of two exits is the start";

  // An event on three cells sits on the last; a text after an AREA line goes to the event
  // before it; NEEDSX is NEEDS; a keyword without an argument is ignored; an event on no
  // cell is nowhere. An area whose cells run from its last corner back to its first
  // contains nothing; an area of one cell is that cell.
  EXPECT_EQ(file.Entries(), (std::vector<std::string>{
                                "AREA c 1,2 to 5,4, species 2 to 3, levels 4 to 4",
                                "EVENT E at 3,1 needs 'a' or says '', says 'goes to the event E, not to the area', "
                                "gives ''",
                                "AREA d 2,3 to 4,5, species 1 to 1, levels 2 to 2",
                                "AREA b 5,1 to 3,2, species 0 to 0, levels 1 to 1",
                                "EVENT z at -1,-1 needs '' or says '', says '', gives ''",
                                "AREA x 7,1 to 7,1, species 5 to 5, levels 3 to 3"}));
  for (int cy = 0; cy < file.height; ++cy)
    for (int cx = 0; cx < file.width; ++cx) EXPECT_FALSE(file.Area(3)->Contains(cx, cy)) << cx << "," << cy;
  EXPECT_TRUE(file.Area(5)->Contains(7, 1));
  // ARTWORK is ART; numbers after an unreadable one keep their values.
  EXPECT_EQ(file.Values(), "dat\\w.bmp dat\\f.bmp dat\\comback-scar-for.bmp 1 2 0 0");
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
  EXPECT_FALSE(cut.Start()[0]);

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
