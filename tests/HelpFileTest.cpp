// The help file reader: which lines are topics and what their texts are, lines longer than
// one read (junk of every kind is the fuzz target's), where the file is looked for and what a reading gives when the file is
// missing, empty or short of topics; and the lessons the game ships, which must each fit
// the temple's text box.
#include <cstring>

#include "platform/DrawText.h"
#include "platform/Font.h"
#include "screens/HelpFile.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"

namespace {

std::string Topic(std::string_view content, int number) {
  HelpText text;
  std::memset(text, 'x', sizeof text);
  const bool found = FindHelpTopic(content, number, text);
  EXPECT_LT(strnlen(text, sizeof text), sizeof text) << "the text always ends inside its room";
  EXPECT_EQ(found, text[0] != '\0') << "a found topic is never empty, a missing one always is";
  return text;
}

TEST(HelpFileTest, TopicLinesAndTheirTexts) {
  const std::string file =
      "Lessons of the temple\n"
      "\n"
      "INFO The first lesson.\n"
      "   info A sentence after blanks and a word in lower case.\n"
      "\t\v\fInfo:\tA word that only begins with the mark.\r\n"
      "INFORMATION counts as well\n"
      "INF is too short to be a topic\n"
      "~INFO does not begin with the mark\n"
      "# INFO hides behind a remark sign\n"
      "INFO\n"
      "INFO    \t   \r\n"
      "INFO Two  blanks   inside stay.   \n"
      "INFO The last line has no line end";
  EXPECT_EQ(Topic(file, 0), "The first lesson. ");
  EXPECT_EQ(Topic(file, 1), "A sentence after blanks and a word in lower case. ");
  EXPECT_EQ(Topic(file, 2), "A word that only begins with the mark. ") << "the carriage return goes with the newline";
  EXPECT_EQ(Topic(file, 3), "counts as well ");
  EXPECT_EQ(Topic(file, 4), " ") << "a mark alone is a topic without words";
  EXPECT_EQ(Topic(file, 5), " ");
  EXPECT_EQ(Topic(file, 6), "Two  blanks   inside stay.    ") << "trailing blanks are not line ends";
  EXPECT_EQ(Topic(file, 7), "The last line has no line end ");
  EXPECT_EQ(Topic(file, 8), "") << "there are eight topics";
  EXPECT_EQ(Topic(file, -1), "");
  EXPECT_EQ(Topic("", 0), "");
  EXPECT_EQ(Topic("\n\n   \n", 0), "");
  EXPECT_EQ(Topic("IN\nINFO", 0), " ");
  EXPECT_EQ(Topic("Windows lines\r\nINFO One.\r\nINFO Two.\r\n", 1), "Two. ");
}

TEST(HelpFileTest, LongLinesAreReadInPiecesAndJunkNeverOverflows) {
  // A topic line longer than one read: its text is what the first read holds, and the
  // rest is a line of its own, which is a topic only when it begins like one.
  const std::string words(3000, 'a');
  std::string file = "INFO " + words + "\n";
  EXPECT_EQ(Topic(file, 0), std::string(kHelpLineLength - 5, 'a') + " ");
  EXPECT_EQ(Topic(file, 1), "");
  file = "INFO " + std::string(kHelpLineLength - 5, 'b') + "info the rest\nINFO next\n";
  EXPECT_EQ(Topic(file, 1), "the rest ");
  EXPECT_EQ(Topic(file, 2), "next ");
  // A line that fills one read exactly, newline included, is one line.
  file = "INFO " + std::string(kHelpLineLength - 6, 'c') + "\nINFO after\n";
  EXPECT_EQ(Topic(file, 0), std::string(kHelpLineLength - 6, 'c') + " ");
  EXPECT_EQ(Topic(file, 1), "after ");

  // A NUL ends what is read of its line; the next line is read as usual.
  file = std::string("INFO before\0INFO hidden\nINFO after\n", 35);
  EXPECT_EQ(Topic(file, 0), "before ");
  EXPECT_EQ(Topic(file, 1), "after ");
  file = std::string("\0INFO hidden\nINFO seen\n", 23);
  EXPECT_EQ(Topic(file, 0), "seen ");
}

class HelpFileReadingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(folder / "root" / "dat");
    platform::SetDataRoot((folder / "root").string());
  }
  void TearDown() override { platform::SetDataRoot(""); }
  void Write(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }
  // Reads with the index given; the text and the index the reading leaves.
  using Reading = std::pair<std::string, std::int32_t>;
  Reading Read(std::int32_t index) {
    HelpText text;
    std::memset(text, 'x', sizeof text);
    ReadHelpTopic(index, text);
    return {text, index};
  }

  TempFolder folder{"help"};
  InFolder here{folder / "here"};
};

TEST_F(HelpFileReadingTest, MissingEmptyAndShortFiles) {
  EXPECT_EQ(Read(3), Reading("", 3)) << "no file anywhere: the index stays";
  Write(folder / "here" / "help.dat", "");
  EXPECT_EQ(Read(3), Reading("", 0)) << "an empty file has no topic 3: back to the first";
  Write(folder / "here" / "help.dat", "no topics\nhere at all\n");
  EXPECT_EQ(Read(0), Reading("", 0));

  Write(folder / "here" / "help.dat", "INFO zero\nINFO one\nINFO two\n");
  EXPECT_EQ(Read(2), Reading("two ", 2));
  EXPECT_EQ(Read(3), Reading("zero ", 0)) << "past the last topic the first comes again";
  EXPECT_EQ(Read(-4), Reading("zero ", 0));
}

TEST_F(HelpFileReadingTest, TheCurrentDirectoryComesBeforeTheDataRoot) {
  Write(folder / "root" / "help.dat", "INFO from the data root\n");
  EXPECT_EQ(HelpFilePath(), platform::DataPath("help.dat"));
  EXPECT_EQ(Read(0).first, "from the data root ");
  Write(folder / "here" / "help.dat", "INFO from here\n");
  EXPECT_EQ(HelpFilePath(), "help.dat");
  EXPECT_EQ(Read(0).first, "from here ");
  std::filesystem::remove(folder / "here" / "help.dat");
  EXPECT_EQ(Read(0).first, "from the data root ");
}

// The lessons the game ships, as the temple shows them: in font 2, word-wrapped in the
// box (100, 80, 540, 300).
TEST(ShippedHelpFileTest, EveryLessonFitsTheTemplesTextBox) {
  const auto path = std::filesystem::path(__FILE__).parent_path().parent_path() / "assets" / "help.dat";
  std::ifstream in(path, std::ios::binary);
  ASSERT_TRUE(in) << path;
  const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());

  HeadlessGame game([] { return new GameMode(1, "IDLE"); }, "");
  ASSERT_EQ(game.started, 1);
  platform::Font* font = theDisplay->FontAt(2);
  ASSERT_NE(font, nullptr);
  const int width = 540 - 100, height = 300 - 80;

  std::vector<std::string> lessons;
  for (HelpText text; FindHelpTopic(content, static_cast<int>(lessons.size()), text);) lessons.push_back(text);
  EXPECT_GE(lessons.size(), 15u);
  std::string all;
  for (const std::string& lesson : lessons) {
    EXPECT_GT(lesson.size(), 40u) << "a lesson worth the visit: " << lesson;
    EXPECT_EQ(lesson.find('&'), std::string::npos) << "an ampersand would underline the next letter: " << lesson;
    const auto lines = platform::LayoutText(*font, lesson, width, platform::DT_CENTER | platform::DT_WORDBREAK);
    EXPECT_LE(static_cast<int>(lines.size()) * font->CellHeight(), height) << lines.size() << " lines: " << lesson;
    for (const auto& line : lines) EXPECT_LE(font->Measure(line.text), width) << line.text;
    all += lesson;
  }
  // The keys that work on every screen are taught somewhere.
  for (const char* key : {"F11", "F12", "M "}) EXPECT_NE(all.find(key), std::string::npos) << key;
}

}  // namespace
