// The readers of the game's files, each on small files of tests/data or made here, with
// the junk of every kind left to the fuzz targets: bitmaps of every common depth and
// layout giving the same picture, broken ones refused instead of read past their end;
// waves with every field of their format, formats with extra bytes, chunks in any order with padding,
// each error code from a file broken on purpose and every cut-short file; areas (the
// grammar's worked example, a file full of quirks, the bounds of a line read); and the help
// file (which lines are topics and what their texts are, lines longer than one read, where
// the file is looked for and what a reading gives when it is missing, empty or short of
// topics, and the lessons the game ships, which must each fit the temple's text box).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "audio/WaveReader.h"
#include "platform/BitmapFile.h"
#include "platform/DrawText.h"
#include "platform/Font.h"
#include "platform/Surface.h"
#include "screens/HelpFile.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"
#include "ui/List.h"
#include "world/AreaFile.h"

namespace {

using platform::DecodeBitmap;
using platform::Rgb565;

// The test card of tests/data, in colours that every depth can hold exactly.
const std::vector<std::uint32_t> kCard = {
    0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0x000000,  //
    0xFFFF00, 0x000000, 0xFF00FF, 0x00FFFF, 0xFF0000,  //
    0x000000, 0xFFFFFF, 0x00FF00, 0x0000FF, 0xFFFF00,
};

// The bytes with a little-endian field of `size` bytes at `at` set to the value.
std::vector<std::uint8_t> Patched(std::vector<std::uint8_t> bytes, std::size_t at, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
  return bytes;
}

std::uint16_t Expected(std::uint32_t rgb) { return Rgb565(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF); }

TEST(BitmapFileTest, EveryDepthAndRowOrderGivesTheSamePicture) {
  for (const char* name : {"card-1.bmp", "card-4.bmp", "card-8.bmp", "card-8-top-down.bmp", "card-16.bmp",
                           "card-16-fields.bmp", "card-24.bmp", "card-24-top-down.bmp", "card-32.bmp",
                           "card-32-top-down-fields.bmp"}) {
    SCOPED_TRACE(name);
    const auto image = platform::LoadBitmapFile(TestData(name));
    ASSERT_TRUE(image.has_value());
    ASSERT_EQ(image->width, 5);
    ASSERT_EQ(image->height, 3);
    const bool twoColours = std::string(name) == "card-1.bmp";
    for (int i = 0; i < 15; ++i) {
      const std::uint32_t want = twoColours ? (kCard[i] == 0xFFFFFF ? 0xFFFFFF : 0) : kCard[i];
      EXPECT_EQ(image->pixels[i], Expected(want)) << "pixel " << i;
    }
  }
}

TEST(BitmapFileTest, RunLengthPictures) {
  const std::vector<std::uint32_t> palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
  struct Case {
    const char* name;
    int width;
    std::vector<std::uint32_t> indices;  // top row first
  };
  const Case cases[] = {
      {"runs-8.bmp", 4, {2, 3, 4, 1, 0, 0, 0, 2, 1, 1, 1, 0}},
      {"runs-4.bmp", 6, {2, 3, 4, 1, 2, 3, 0, 0, 0, 2, 0, 0, 1, 2, 1, 0, 0, 0}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto bytes = ReadTestData(c.name);
    const auto image = DecodeBitmap(bytes);
    ASSERT_TRUE(image.has_value());
    ASSERT_EQ(image->width, c.width);
    ASSERT_EQ(image->height, 3);
    for (std::size_t i = 0; i < c.indices.size(); ++i) EXPECT_EQ(image->pixels[i], Expected(palette[c.indices[i]])) << i;
    // Cut anywhere, the file still decodes or is refused, and nothing is read past its end.
    for (std::size_t n = 0; n < bytes.size(); ++n) DecodeBitmap(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + n));
    // Run lengths are written bottom-up only (here height -3); and 5000 x 1000 pixels from
    // a few bytes of runs are too many.
    EXPECT_FALSE(DecodeBitmap(Patched(bytes, 22, static_cast<std::uint32_t>(-3), 4)).has_value());
    EXPECT_FALSE(DecodeBitmap(Patched(Patched(bytes, 18, 5000, 4), 22, 1000, 4)).has_value());
  }
}

TEST(BitmapFileTest, BrokenFilesAreRefused) {
  const auto good = ReadTestData("card-24.bmp");
  ASSERT_TRUE(DecodeBitmap(good).has_value());

  // Every truncation of a good file.
  for (std::size_t n = 0; n < good.size(); ++n)
    EXPECT_FALSE(DecodeBitmap(std::span(good.data(), n)).has_value()) << "cut at " << n;
  auto patched = [&](std::size_t at, std::uint32_t value, int size) { return Patched(good, at, value, size); };
  EXPECT_FALSE(DecodeBitmap(patched(0, 'X', 1)).has_value()) << "not a bitmap";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0, 4)).has_value()) << "zero width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0, 4)).has_value()) << "zero height";
  EXPECT_FALSE(DecodeBitmap(patched(18, 0x7FFFFFFF, 4)).has_value()) << "absurd width";
  EXPECT_FALSE(DecodeBitmap(patched(22, 0x80000000, 4)).has_value()) << "absurd top-down height";
  EXPECT_FALSE(DecodeBitmap(patched(28, 7, 2)).has_value()) << "unknown depth";
  EXPECT_FALSE(DecodeBitmap(patched(30, 1, 4)).has_value()) << "run lengths on 24 bits";
  EXPECT_FALSE(DecodeBitmap(patched(10, 0xFFFFFF00, 4)).has_value()) << "pixels beyond the end";

  // Channels keep their top 5, 6, 5 bits ((15, 11, 7) and (8, 4, 8)); a palette index
  // beyond the palette shows black.
  for (const auto& [name, first, second] :
       {std::tuple{"dark-channels.bmp", (1 << 11) | (2 << 5), (1 << 11) | (1 << 5) | 1},
        {"short-palette.bmp", int{Expected(0xFF0000)}, 0}}) {
    const auto image = platform::LoadBitmapFile(TestData(name));
    ASSERT_TRUE(image.has_value()) << name;
    EXPECT_EQ((std::vector<int>{image->pixels[0], image->pixels[1]}), (std::vector{first, second})) << name;
  }
  EXPECT_FALSE(platform::LoadBitmapFile("/nonexistent/quarnwick.bmp").has_value());
  EXPECT_FALSE(platform::LoadBitmapFile(QUARNWICK_TEST_DATA).has_value()) << "a folder is no picture";
}

using platform::WaveFormat;

Bytes Samples(std::size_t count, int seed) {
  Bytes b(count);
  for (std::size_t i = 0; i < count; ++i) b[i] = static_cast<std::uint8_t>(seed + 37 * i + (i >> 3));
  return b;
}

class WaveReaderTest : public ::testing::Test {
 protected:
  std::string Write(const Bytes& bytes) {
    WriteFile((folder / "test.wav").string(), bytes);
    return (folder / "test.wav").string();
  }
  // Loads the bytes from a file; the same bytes in memory must give the same result.
  int Load(const Bytes& bytes) {
    const int fromFile = WaveLoadFile(Write(bytes), size, format, data);
    std::uint32_t memorySize = 0;
    std::unique_ptr<WaveFormat> memoryFormat;
    std::unique_ptr<std::uint8_t[]> memoryData;
    const int fromMemory = WaveLoadBytes(bytes, memorySize, memoryFormat, memoryData);
    EXPECT_EQ(fromFile, fromMemory);
    EXPECT_EQ(size, memorySize);
    if (fromFile == 0) {
      EXPECT_TRUE(memoryFormat && *memoryFormat == *format);
      EXPECT_EQ(Bytes(data.get(), data.get() + size), Bytes(memoryData.get(), memoryData.get() + memorySize));
    }
    return fromFile;
  }
  Bytes Data() const { return Bytes(data.get(), data.get() + size); }
  void ExpectNothingLoaded() const { EXPECT_TRUE(size == 0 && !format && !data) << size << !format << !data; }

  TempFolder folder{"wave"};
  std::uint32_t size = 12345;
  std::unique_ptr<WaveFormat> format;
  std::unique_ptr<std::uint8_t[]> data;
};

TEST_F(WaveReaderTest, GoodFilesGiveTheirFormatAndEveryByteOfData) {
  // A PCM record written with a count field (18 bytes) has no extra bytes, even when the
  // count is not 0; so has a float record of 16 bytes, which has no count field at all.
  Bytes pcm18 = FmtBody(1, 1, 8000, 16, Bytes{});
  pcm18[16] = 2;
  Bytes longer = FmtBody(2, 1, 8000, 4, Bytes{1, 2, 3, 4});
  longer.insert(longer.end(), {9, 9, 9, 9, 9});
  Bytes list;
  PutId(list, "INFO");
  PutId(list, "ISFT");
  Put32(list, 3);
  list.insert(list.end(), {'a', 'b', 'c', 0});
  const struct {
    const char* what;
    std::vector<Chunk> chunks;
    WaveFormat format;
  } cases[] = {
      // Every field of the record differs from the others, so that none is read for another.
      {"stereo, 16 bits", {{"fmt ", FmtBody(1, 2, 22050, 16)}, {"data", Samples(100, 18)}}, Format(1, 2, 22050, 16)},
      {"a compressed format: two extra bytes and a fact chunk",
       {{"fmt ", FmtBody(0x11, 1, 8000, 4, Bytes{0xF9, 0x01})}, {"fact", {0x40, 0, 0, 0}}, {"data", Samples(64, 5)}},
       Format(0x11, 1, 8000, 4, {0xF9, 0x01})},
      {"the extensible record: 22 extra bytes",
       {{"fmt ", FmtBody(0xFFFE, 2, 44100, 16, Samples(22, 9))}, {"data", Samples(40, 1)}},
       Format(0xFFFE, 2, 44100, 16, Samples(22, 9))},
      {"PCM with a count", {{"fmt ", pcm18}, {"data", Samples(8, 2)}}, Format(1, 1, 8000, 16)},
      {"float without a count", {{"fmt ", FmtBody(3, 1, 8000, 32)}, {"data", Samples(8, 2)}}, Format(3, 1, 8000, 32)},
      {"a fmt chunk longer than its record", {{"fmt ", longer}, {"data", Samples(10, 3)}},
       Format(2, 1, 8000, 4, {1, 2, 3, 4})},
      {"chunks in any order, an odd one padded",
       {{"LIST", list}, {"junk", Samples(5, 0)}, {"data", Samples(7, 4)}, {"cue ", Samples(3, 1)},
        {"fmt ", FmtBody(1, 1, 22050, 8)}, {"smpl", Samples(1, 2)}},
       Format(1, 1, 22050, 8)},
      {"an empty data chunk", {{"fmt ", FmtBody(1, 2, 44100, 16)}, {"data", {}}}, Format(1, 2, 44100, 16)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ASSERT_EQ(Load(Riff(c.chunks)), 0);
    ASSERT_NE(format, nullptr);
    EXPECT_EQ(*format, c.format);
    const auto chunk = std::find_if(c.chunks.begin(), c.chunks.end(), [](const Chunk& k) { return k.id == "data"; });
    EXPECT_EQ(Data(), chunk->body);
  }
}

TEST_F(WaveReaderTest, TheDataIsReadInPiecesThatTakeFromTheChunk) {
  const Bytes samples = Samples(10, 6);
  const std::string path = Write(Riff({{"fmt ", FmtBody(1, 1, 8000, 8)}, {"data", samples}, {"junk", Samples(6, 0)}}));
  std::unique_ptr<WaveFile> file;
  RiffChunk riff;
  ASSERT_EQ(WaveOpenFile(path, file, format, riff), 0);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(std::pair(riff.id, riff.formType), std::pair(ChunkId("RIFF"), ChunkId("WAVE")));
  RiffChunk chunk;
  ASSERT_EQ(WaveStartDataRead(*file, chunk, riff), 0);
  EXPECT_EQ(std::pair(chunk.id, chunk.size), std::pair(ChunkId("data"), 10u));

  // Each read gives (code, bytes read, bytes left in the chunk); asking for more than is
  // left gives what is left, and not the chunk behind it.
  Bytes got(16, 0xEE);
  std::uint32_t read = 99;
  auto readPart = [&](std::uint32_t wanted, std::uint8_t* into) {
    const int code = WaveReadFile(*file, wanted, into, chunk, read);
    return std::tuple(code, read, chunk.size);
  };
  EXPECT_EQ(readPart(4, got.data()), std::tuple(0, 4u, 6u));
  EXPECT_EQ(readPart(16, got.data() + 4), std::tuple(0, 6u, 0u));
  EXPECT_EQ(Bytes(got.begin(), got.begin() + 10), samples);
  EXPECT_EQ(got[10], 0xEE);
  EXPECT_EQ(readPart(16, got.data()), std::tuple(0, 0u, 0u));
}

TEST_F(WaveReaderTest, EachFaultHasItsCode) {
  const Bytes fmt = FmtBody(1, 1, 8000, 16);
  const Bytes samples = Samples(20, 7);
  struct Case {
    const char* what;
    Bytes file;
    int code;
  };
  Bytes cutFormat = Riff({{"fmt ", fmt}});
  cutFormat.resize(cutFormat.size() - 6);  // the record ends at the file's end
  Bytes cutCount = FmtBody(2, 1, 8000, 4, Bytes{});
  cutCount.resize(17);  // one byte of the count
  Bytes missingExtra = FmtBody(2, 1, 8000, 4, Bytes{1, 2});
  missingExtra[16] = 3;  // counts three, holds two
  Bytes outside = Riff({{"fmt ", fmt}});
  const Bytes dataChunk = Riff({{"data", samples}});
  outside.insert(outside.end(), dataChunk.begin() + 12, dataChunk.end());
  Bytes cutData = Riff({{"fmt ", fmt}, {"data", samples}});
  cutData.resize(cutData.size() - 1);
  const std::vector<Case> cases = {
      {"another RIFF form", Riff({{"fmt ", fmt}, {"data", samples}}, "AVI "), kWaveNotWave},
      {"not RIFF at all", Riff({{"fmt ", fmt}, {"data", samples}}, "WAVE", "RIFX"), kWaveNotWave},
      {"a format record under 16 bytes", Riff({{"fmt ", Bytes(fmt.begin(), fmt.begin() + 14)}, {"data", samples}}),
       kWaveNotWave},
      {"extra bytes counted but missing", Riff({{"fmt ", missingExtra}, {"data", samples}}), kWaveNotWave},
      {"the record cut by the end of the file", cutFormat, kWaveFormatUnreadable},
      {"the count of extra bytes cut", Riff({{"fmt ", cutCount}, {"data", samples}}), kWaveFormatUnreadable},
      {"data shorter than its size", cutData, kWaveDataShort},
      {"data claiming almost 4 GB", Riff({{"fmt ", fmt}, {"data", samples, 0xFFFFFFF0u}}), kWaveDataShort},
      {"no fmt chunk", Riff({{"data", samples}}), kWaveChunkNotFound},
      {"no data chunk", Riff({{"fmt ", fmt}, {"LIST", Samples(8, 0)}}), kWaveChunkNotFound},
      {"the data chunk behind the end the RIFF header states", outside, kWaveChunkNotFound},
      {"an empty file", Bytes{}, kWaveChunkNotFound},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Load(c.file), c.code);
    ExpectNothingLoaded();
  }
}

TEST_F(WaveReaderTest, FilesThatCannotBeOpened) {
  EXPECT_EQ(WaveLoadFile((folder / "missing.wav").string(), size, format, data), kWaveCannotOpen);
  ExpectNothingLoaded();
  std::filesystem::create_directories(folder / "folder.wav");
  EXPECT_EQ(WaveLoadFile((folder / "folder.wav").string(), size, format, data), kWaveCannotOpen);
  ExpectNothingLoaded();

  // Opening a file that is no wave leaves nothing open.
  std::unique_ptr<WaveFile> file;
  RiffChunk riff;
  EXPECT_EQ(WaveOpenFile(Write(Riff({{"data", Samples(4, 1)}})), file, format, riff), kWaveChunkNotFound);
  EXPECT_TRUE(!file && !format);
}

TEST_F(WaveReaderTest, EveryCutShortFileIsRefused) {
  Bytes list;
  PutId(list, "INFO");
  const Bytes whole = Riff({{"LIST", list},
                            {"fmt ", FmtBody(2, 2, 11025, 4, Bytes{7, 7, 7})},
                            {"fact", Samples(4, 3)},
                            {"data", Samples(9, 8)}});
  ASSERT_EQ(Load(whole), 0);
  const std::set<int> codes = {kWaveNotWave, kWaveFormatUnreadable, kWaveDataShort, kWaveChunkNotFound};
  // The pad byte after the odd data chunk is the only byte the wave can do without.
  for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
    SCOPED_TRACE(length);
    const int code = Load(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
    EXPECT_TRUE(codes.count(code)) << code;
    ExpectNothingLoaded();
  }
}

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
  EXPECT_EQ(std::tuple(file.width, file.height), std::tuple(7, 5));
  EXPECT_EQ(file.Start(), (std::vector<int>{true, 3, 4}));
  EXPECT_EQ(file.Entries(), (std::vector<std::string>{
                                "EVENT B at 5,1 needs 'Golden Key' or says 'The gate is locked.', says 'The gate "
                                "swings open.', gives 'Silver Flute'",
                                "AREA a 1,1 to 3,2, species 0 to 6, levels 1 to 3"}));
  EXPECT_EQ(file.Values(), "dat\\wall.bmp dat\\floor.bmp dat\\comback-scar-for.bmp 160 300 480 300");
  for (std::uint8_t flag : file.grid.visible) EXPECT_EQ(flag, 1);
  EXPECT_EQ(file.repairs.rowsCut + file.repairs.rowsShort + file.repairs.rowsUnended + file.repairs.oneCellAreas, 0);
}

TEST(AreaFileTest, KeywordsCommentsRowsAndAreasOfEveryShape) {
  ReadFile file(TestArea("quirks.dat"));
  // Six ROW lines in four spellings; the last gives the width. A longer row is cut at it,
  // a shorter one leaves walls.
  EXPECT_EQ(std::tuple(file.width, file.height), std::tuple(10, 6));
  EXPECT_EQ((std::vector{file.Row(1), file.Row(2), file.Row(5)}),
            (std::vector<std::string>{"1EEE0b2x29", "1c0b000111", "1111d11111"}));
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
  EXPECT_EQ(std::tuple(file.repairs.rowsCut, file.repairs.rowsShort, file.repairs.oneCellAreas), std::tuple(1, 1, 1));
}

TEST(AreaFileTest, ReadsAreBoundedAndALastLineWithoutItsEndLosesACharacter) {
  // A last line without a line end loses its last character: no exit is left.
  ReadFile cut(TestArea("noexit-end.dat"));
  EXPECT_EQ(std::tuple(cut.width, cut.Row(1), cut.repairs.rowsUnended), std::tuple(1, "1", 1));
  EXPECT_FALSE(cut.Start()[0]);

  // A line longer than one read goes on as a line of its own, which here is no keyword.
  ReadFile longRow("ROW " + std::string(3000, '0') + "2\n");
  EXPECT_EQ(std::tuple(longRow.width, longRow.height), std::tuple(2046 - 4 - 1, 1));

  // Texts are cut to their fields; a NUL ends what is seen of a line.
  ReadFile texts("EVENT A\nNEEDS " + std::string(1500, 'k') + "\nGIVES Flute" + std::string(1, '\0') +
                 "of Wind\nCOMBATART " + std::string(200, 'p') + "\n");
  ASSERT_EQ(texts.order.size(), 1u);
  EXPECT_EQ(std::string(texts.Event(0)->needs), std::string(1023, 'k'));
  EXPECT_STREQ(texts.Event(0)->gives, "Flute");
  EXPECT_EQ(std::string(texts.values.combatBackground), std::string(127, 'p'));

  // A CR LF is one line end, also when one read ends on the CR and the next begins with
  // the LF; a lone CR is kept.
  ReadFile windows("ROW 12\r\nEVENT A\r\nMAINTEXT " + std::string(2036, 't') + "\r\nNEEDS a\rb\r\n");
  ASSERT_EQ(windows.order.size(), 1u);
  EXPECT_EQ(std::tuple(windows.width, std::string(windows.Event(0)->mainText), std::string(windows.Event(0)->needs)),
            std::tuple(2, std::string(2036, 't'), std::string("a\rb")));

  std::string content, reason;
  EXPECT_FALSE(LoadAreaText("/nowhere/genwood.dat", &content, &reason));
  EXPECT_EQ(reason, "is missing");
}

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

TEST_F(HelpFileReadingTest, MissingEmptyAndShortFilesHereOrInTheDataRoot) {
  EXPECT_EQ(Read(3), Reading("", 3)) << "no file anywhere: the index stays";
  Write(folder / "root" / "help.dat", "INFO from the data root\n");
  EXPECT_EQ(HelpFilePath(), platform::DataPath("help.dat"));
  EXPECT_EQ(Read(0).first, "from the data root ");
  // The current directory comes before the data root, even with an empty file.
  Write(folder / "here" / "help.dat", "");
  EXPECT_EQ(HelpFilePath(), "help.dat");
  EXPECT_EQ(Read(3), Reading("", 0)) << "an empty file has no topic 3: back to the first";
  Write(folder / "here" / "help.dat", "no topics\nhere at all\n");
  EXPECT_EQ(Read(0), Reading("", 0));

  Write(folder / "here" / "help.dat", "INFO zero\nINFO one\nINFO two\n");
  EXPECT_EQ(Read(2), Reading("two ", 2));
  EXPECT_EQ(Read(3), Reading("zero ", 0)) << "past the last topic the first comes again";
  EXPECT_EQ(Read(-4), Reading("zero ", 0));
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
