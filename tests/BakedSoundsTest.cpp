// Every sound the build bakes loads through the game's own wave reader as the game needs
// it: 16-bit PCM at one rate, with samples, and every sound the game names is there.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "audio/WaveReader.h"
#include "creatures/SpellTable.h"

namespace fs = std::filesystem;

TEST(BakedSoundsTest, EverySoundLoadsAsThe16BitPcmTheGamePlays) {
  const fs::path dat = fs::path(QUARNWICK_BUILD_DIR) / "dat";
  std::set<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(dat)) {
    if (entry.path().extension() != ".wav") continue;
    const std::string name = fs::relative(entry.path(), dat).generic_string();
    SCOPED_TRACE(name);
    found.insert(name);
    std::uint32_t size = 0;
    std::unique_ptr<platform::WaveFormat> format;
    std::unique_ptr<std::uint8_t[]> data;
    ASSERT_EQ(WaveLoadFile(entry.path().string(), size, format, data), 0);
    EXPECT_EQ(format->formatTag, 1);
    EXPECT_EQ(format->bitsPerSample, 16);
    EXPECT_EQ(format->samplesPerSec, 22050u);
    EXPECT_TRUE(format->channels == 1 || format->channels == 2);
    EXPECT_EQ(format->blockAlign, format->channels * 2);
    EXPECT_GT(size, 1000u);
  }
  // The menus, the map, the places and battles, and every file the spell tables name.
  std::set<std::string> needed = {"button2.wav",  "pcmonst1.wav", "pcmonst2.wav", "fanfare4.wav",
                                  "fanfare5.wav", "fanfare7.wav", "fanfare8.wav", "common2.wav"};
  for (const auto* table : {spellCastSounds, spellFlightSounds, spellImpactSounds}) {
    for (int kind = 0; kind < kSpellCount; ++kind) {
      if (!HasSpellSound(table[kind])) continue;
      std::string file = table[kind];
      file = file.substr(4);  // past "dat\"
      for (char& c : file) c = c == '\\' ? '/' : c;
      needed.insert(file);
    }
  }
  for (const std::string& file : needed) EXPECT_TRUE(found.count(file)) << file << " is not baked";
}
