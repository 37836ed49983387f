// The player's settings file: what a file of any shape gives, what is written back, and
// that a setting changed is on the disk at once, whole.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "platform/AtomicFile.h"
#include "platform/Settings.h"

namespace {

using platform::Settings;
namespace fs = std::filesystem;

std::string FileText(const fs::path& path) {
  std::string text, error;
  platform::ReadWholeFile(path.string(), &text, &error);
  return text;
}

TEST(SettingsTest, AnyFileGivesUsableValuesAndUnknownKeysAreKept) {
  const struct {
    const char* text;
    bool clean;
    int width, music;
    bool fullscreen;
  } cases[] = {
      {"", true, 0, 100, true},
      {"# a comment\n[quarnwick]\n  window_width = 1280 \r\nfullscreen=no\nmusic_volume = 0\n", true, 1280, 0, false},
      {"music_volume = 101\nwindow_width = -5\nfullscreen = maybe\n", false, 0, 100, true},  // out of range
      {"music_volume = 40\nmusic_volume = 60\n", false, 0, 40, true},                        // the first counts
      {"garbage without an equals sign\n= 3\nwindow_width = 12ab\n", false, 0, 100, true},
      {"fullscreen = no\nwindow_wid", false, 0, 100, false},  // cut off while being written
  };
  for (const auto& c : cases) {
    Settings settings;
    std::string problem;
    EXPECT_EQ(settings.Read(c.text, &problem), c.clean) << c.text;
    EXPECT_EQ(problem.empty(), c.clean) << c.text;
    EXPECT_EQ(std::tuple(settings.Number(Settings::kWindowWidth), settings.Number(Settings::kMusicVolume),
                         settings.Flag(Settings::kFullscreen)),
              std::tuple(c.width, c.music, c.fullscreen))
        << c.text;
    // What is written reads back to the same values, with nothing left to complain of.
    Settings again;
    EXPECT_TRUE(again.Read(settings.Text(), &problem)) << problem;
    EXPECT_EQ(again.Text(), settings.Text());
  }

  Settings settings;
  std::string problem;
  settings.Read("later_feature = on\neffects_volume = 30\n", &problem);
  const std::string text = settings.Text();
  EXPECT_NE(text.find("\nlater_feature = on\n"), std::string::npos) << text;
  EXPECT_NE(text.find("# Loudness of the sound effects"), std::string::npos) << "a comment above each key";
  EXPECT_NE(text.find("\neffects_volume = 30\n"), std::string::npos) << text;
}

TEST(SettingsTest, AChangeIsWrittenAtOnceAndAFailedWriteLosesNothing) {
  const fs::path folder = fs::temp_directory_path() / ("quarnwick-settings-" + std::to_string(getpid()));
  fs::remove_all(folder);
  const fs::path path = folder / "quarnwick" / "quarnwick.conf";
  Settings settings;
  EXPECT_TRUE(settings.Load(path.string())) << "a missing file is no problem";
  EXPECT_FALSE(fs::exists(path)) << "nothing is written until a setting changes";
  settings.SetNumber(Settings::kWindowWidth, 1280);
  settings.SetNumber(Settings::kWindowHeight, 960);
  settings.SetFlag(Settings::kFullscreen, false);
  settings.SetNumber(Settings::kMusicVolume, 500);  // out of range: not taken
  Settings read;
  EXPECT_TRUE(read.Load(path.string()));
  EXPECT_EQ(std::tuple(read.Number(Settings::kWindowWidth), read.Number(Settings::kWindowHeight),
                       read.Flag(Settings::kFullscreen), read.Number(Settings::kMusicVolume)),
            std::tuple(1280, 960, false, 100));

  const std::string before = FileText(path);
  platform::FailNextFileWrites(1, ENOSPC);
  read.SetNumber(Settings::kEffectsVolume, 10);
  EXPECT_EQ(FileText(path), before) << "the file as it was";
  EXPECT_EQ(read.Number(Settings::kEffectsVolume), 10) << "the game goes on with the new value";

  std::ofstream(path) << "fullscreen = no\n\x01\x02 = \xff\n";
  Settings odd;
  EXPECT_FALSE(odd.Load(path.string()));
  EXPECT_FALSE(odd.Flag(Settings::kFullscreen));
  fs::remove_all(folder);
}

}  // namespace
