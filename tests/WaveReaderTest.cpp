// The wave reader on files made here: PCM layouts, formats with extra bytes, chunks in any
// order with padding, each error code from a file broken on purpose, and every cut-short
// version of a file.
#include <gtest/gtest.h>

#include <set>

#include "audio/WaveReader.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

using platform::WaveFormat;

namespace {

Bytes Samples(std::size_t count, int seed) {
  Bytes b(count);
  for (std::size_t i = 0; i < count; ++i) b[i] = static_cast<std::uint8_t>(seed + 37 * i + (i >> 3));
  return b;
}

class WaveReaderTest : public ::testing::Test {
 protected:
  std::string Write(const Bytes& bytes, const std::string& name = "test.wav") {
    const std::string path = (folder / name).string();
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                                static_cast<std::streamsize>(bytes.size()));
    return path;
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
  void ExpectNothingLoaded() const {
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(format, nullptr);
    EXPECT_EQ(data, nullptr);
  }

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
      {"mono, 8 bits", {{"fmt ", FmtBody(1, 1, 11025, 8)}, {"data", Samples(25, 9)}}, Format(1, 1, 11025, 8)},
      {"stereo, 8 bits", {{"fmt ", FmtBody(1, 2, 22050, 8)}, {"data", Samples(50, 10)}}, Format(1, 2, 22050, 8)},
      {"mono, 16 bits", {{"fmt ", FmtBody(1, 1, 44100, 16)}, {"data", Samples(50, 17)}}, Format(1, 1, 44100, 16)},
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
    for (const Chunk& chunk : c.chunks)
      if (chunk.id == "data") EXPECT_EQ(Data(), chunk.body);
  }
}

TEST_F(WaveReaderTest, TheDataIsReadInPiecesThatTakeFromTheChunk) {
  const Bytes samples = Samples(10, 6);
  const std::string path = Write(Riff({{"fmt ", FmtBody(1, 1, 8000, 8)}, {"data", samples}, {"junk", Samples(6, 0)}}));
  std::unique_ptr<WaveFile> file;
  RiffChunk riff;
  ASSERT_EQ(WaveOpenFile(path, file, format, riff), 0);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(riff.id, ChunkId("RIFF"));
  EXPECT_EQ(riff.formType, ChunkId("WAVE"));
  RiffChunk chunk;
  ASSERT_EQ(WaveStartDataRead(*file, chunk, riff), 0);
  EXPECT_EQ(chunk.id, ChunkId("data"));
  EXPECT_EQ(chunk.size, 10u);

  Bytes got(16, 0xEE);
  std::uint32_t read = 99;
  ASSERT_EQ(WaveReadFile(*file, 4, got.data(), chunk, read), 0);
  EXPECT_EQ(read, 4u);
  EXPECT_EQ(chunk.size, 6u);
  // Asking for more than is left gives what is left, and not the chunk behind it.
  ASSERT_EQ(WaveReadFile(*file, 16, got.data() + 4, chunk, read), 0);
  EXPECT_EQ(read, 6u);
  EXPECT_EQ(chunk.size, 0u);
  EXPECT_EQ(Bytes(got.begin(), got.begin() + 10), samples);
  EXPECT_EQ(got[10], 0xEE);
  ASSERT_EQ(WaveReadFile(*file, 16, got.data(), chunk, read), 0);
  EXPECT_EQ(read, 0u);
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
  EXPECT_EQ(file, nullptr);
  EXPECT_EQ(format, nullptr);
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

}  // namespace
