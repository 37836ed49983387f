// The area checker finds each kind of fault an author can make, on small mazes, and
// passes a well-made pair of areas in which a key found in the first opens a gate in the
// second.
#include <gtest/gtest.h>

#include "AreaCheck.h"
#include "platform/Font.h"
#include "support/TestData.h"

namespace {

class AreaCheckTest : public ::testing::Test {
 protected:
  void SetUp() override {
    options.smallestSide = 1;
    options.font = font.get();
  }

  // The problems of the areas, in tier order, with the overall ones last.
  std::vector<std::string> Check(const std::vector<std::string>& areas) {
    std::vector<std::string> files;
    for (const std::string& text : areas) {
      files.push_back((folder / ("area" + std::to_string(files.size()) + ".dat")).string());
      std::ofstream(files.back()) << text;
    }
    std::vector<std::string> problems, overall;
    for (const AreaReport& report : CheckAreas(files, options, &overall))
      problems.insert(problems.end(), report.problems.begin(), report.problems.end());
    for (const std::string& p : overall)
      if (p.find("no area meets the species") == std::string::npos) problems.push_back(p);
    return problems;
  }

  TempFolder folder{"areacheck"};
  std::unique_ptr<platform::Font> font = platform::Font::Open("Arial Bold", 24, 400);
  AreaCheckOptions options;
};

// A room with the entrance at the bottom; the rows given replace the middle three.
std::string Room(const std::string& a, const std::string& b, const std::string& c, const std::string& more = "") {
  return "ROW 1111111\nROW " + a + "\nROW " + b + "\nROW " + c + "\nROW 1112111\n" + more;
}

TEST_F(AreaCheckTest, AWellMadePairOfAreasPasses) {
  const std::string first = Room("1k00001", "1aaaa01", "1aaaa01",
                                 "EVENT k\nMAINTEXT A brass key lies in the moss.\nGIVES Brass Key of the Gate\n"
                                 "AREA a 0 5 1 3\n");
  const std::string second = Room("12B1111", "1100001", "1000001",
                                  "EVENT B\nNEEDS brass key\nNEEDTEXT A gate, locked.\nMAINTEXT The gate opens.\n");
  EXPECT_EQ(Check({first, second}), std::vector<std::string>{});
  // The same gate before the key is found anywhere is a fault: the exit behind it is out of reach.
  const auto problems = Check({second, first});
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_NE(problems[0].find("the exit at (1, 1) cannot be reached"), std::string::npos) << problems[0];
  EXPECT_NE(problems[1].find("needs 'brass key', which is not given before it"), std::string::npos) << problems[1];
}

TEST_F(AreaCheckTest, EveryKindOfFaultIsFound) {
  std::string longText;
  for (int i = 0; i < 140; ++i) longText += "word ";
  struct Case {
    std::string area;
    std::string problem;
  } cases[] = {
      {Room("1200001", "1111111", "1000001"), "the exit at (1, 1) cannot be reached"},
      {Room("10001A1", "1001111", "1001001", "EVENT A\nMAINTEXT Behind walls.\n"), "the marked cell at (5, 1)"},
      {Room("1K00001", "1111K11", "1000001", "EVENT K\nMAINTEXT Twice.\n"), "the event 'K' stands on 2 cells"},
      {Room("1g11001", "1G00001", "1000001",
            "EVENT G\nNEEDS Rope\nNEEDTEXT Too steep.\nMAINTEXT Up.\nEVENT g\nMAINTEXT A rope.\nGIVES Rope\n"),
       "the event 'G' needs 'Rope'"},
      {Room("1000b01", "1b00001", "1000001", "AREA b 0 1 1 2\n"), "runs from its first cell back to its last"},
      {Room("1b0b001", "10b0001", "1000001", "AREA b 0 1 1 2\n"), "has the cell (3, 1) outside its rectangle"},
      {Room("1cc0001", "1cc0001", "1000001", "AREA c 30 40 1 2\n"), "meets species 30 to 40"},
      {Room("1cc0001", "1cc0001", "1000001", "AREA c 3 4 0 2\n"), "meets levels 0 to 2"},
      {Room("1c00001", "1000001", "1000001", "AREA c 3 4 1 2\n"), "have one cell only"},
      {Room("10000001", "1000001", "1000001"), "rows are longer than the last one"},
      {Room("100001", "1000001", "1000001"), "rows are shorter than the last one"},
      {Room("1000001", "1000001", "1000001", "AREA z 1 1 1 1\n"), "the encounter area 'z' has no cell"},
      {Room("1E00001", "1000001", "1000001", "EVENT E\nMAINTEXT " + longText + "\n"), "too long for the panel"},
      {Room("1E00001", "1000001", "1000001", "EVENT E\nMAINTEXT " + std::string(60, 'w') + "\n"),
       "has a line wider than the panel"},
      {Room("1E00001", "1000001", "1000001", "EVENT E\nNEEDS Oar\n"), "needs an item but says nothing"},
      {Room("1E00001", "1000001", "1000001", "EVENT E\nMAINTEXT A lamp.\nGIVES Lamp\n"), "'Lamp' is given but needed nowhere"},
      {"ROW 1111\nROW 1001\nROW 1111\n", "there is no exit"},
  };
  for (const Case& c : cases) {
    const auto problems = Check({c.area});
    const bool found = std::any_of(problems.begin(), problems.end(),
                                   [&](const std::string& p) { return p.find(c.problem) != std::string::npos; });
    EXPECT_TRUE(found) << "expected: " << c.problem << "\nin:\n" << c.area;
  }
  options.smallestSide = 20;
  EXPECT_EQ(Check({Room("1000001", "1000001", "1000001")}), std::vector<std::string>{"the maze is 7 x 5 cells"});
}

}  // namespace
