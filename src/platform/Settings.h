#pragma once
// The player's settings of the game's surroundings, never of its rules (those stay in saved
// games): a short text file of "key = value" lines that a person can edit, each known key
// with a comment line above it. A missing, unreadable or half-written file, or a value out
// of its range, gives the defaults and one line on standard error; keys it does not know
// are kept when the file is written again.
#include <string>
#include <utility>
#include <vector>

namespace platform {

class Settings {
 public:
  // The known keys. A new feature adds its key to the table in Settings.cpp.
  static constexpr const char* kFullscreen = "fullscreen";
  static constexpr const char* kWindowWidth = "window_width";
  static constexpr const char* kWindowHeight = "window_height";
  static constexpr const char* kEffectsVolume = "effects_volume";
  static constexpr const char* kMusicVolume = "music_volume";

  // $XDG_CONFIG_HOME/quarnwick/quarnwick.conf, else ~/.config/quarnwick/quarnwick.conf;
  // empty when no home folder is known.
  static std::string DefaultPath();

  // Reads the file at the path, which Set then writes; a file that is not there is no
  // problem. False (with the one line on standard error) when anything could not be used.
  bool Load(const std::string& path);
  // The text's settings; false with the first line that could not be used in *problem.
  bool Read(const std::string& text, std::string* problem);
  // The file's text: the known keys with their comments, then the unknown ones.
  std::string Text() const;

  // A known key's value: its default when unset or out of range.
  int Number(const char* key) const;
  bool Flag(const char* key) const;
  // Changes a value; when it differs, the file is written again (atomically), unless no path
  // was loaded. A failed write is one line on standard error.
  void SetNumber(const char* key, int value);
  void SetFlag(const char* key, bool value);

 private:
  const std::string* Find(const std::string& key) const;
  void Set(const char* key, const std::string& value);

  std::string path;
  std::vector<std::pair<std::string, std::string>> values;  // in the order first seen
};

}  // namespace platform
