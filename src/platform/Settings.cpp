#include "platform/Settings.h"

#include <charconv>
#include <cstdio>
#include <cctype>
#include <filesystem>

#include "platform/AtomicFile.h"
#include "platform/SavesFolder.h"

namespace platform {
namespace {

struct KnownKey {
  const char* name;
  const char* comment;
  int fallback;
  int low, high;  // a flag is yes (1) or no (0)
};

constexpr KnownKey kKnownKeys[] = {
    {Settings::kFullscreen, "Full screen (yes) or a window (no), as Alt+Enter last left it; -F opens a window all the same.",
     1, 0, 1},
    {Settings::kWindowWidth, "The window's width in pixels, as it was last left; 0 for the largest whole-number scale.", 0,
     0, 16384},
    {Settings::kWindowHeight, "The window's height in pixels, as it was last left; 0 goes with a width of 0.", 0, 0, 16384},
    {Settings::kEffectsVolume, "Loudness of the sound effects, 0 (silent) to 100, over the game's own volumes.", 100, 0,
     100},
    {Settings::kMusicVolume, "Loudness of the music and of the looping sounds of the map and the wild areas, 0 to 100.",
     100, 0, 100},
};

const KnownKey* Known(const std::string& key) {
  for (const KnownKey& k : kKnownKeys)
    if (key == k.name) return &k;
  return nullptr;
}

// Letters, digits and _ - . only.
bool IsKeyName(const std::string& key) {
  if (key.empty()) return false;
  for (char c : key)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_' && c != '-' && c != '.') return false;
  return true;
}

bool IsFlag(const KnownKey& k) { return k.low == 0 && k.high == 1; }

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

// The value of a known key, when it is one the key can have.
bool Parse(const KnownKey& k, const std::string& text, int* value) {
  if (IsFlag(k)) {
    if (text == "yes" || text == "no") {
      *value = text == "yes";
      return true;
    }
    return false;
  }
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < k.low || number > k.high) return false;
  *value = number;
  return true;
}

}  // namespace

std::string Settings::DefaultPath() {
  const std::filesystem::path base = UserBaseFolder("XDG_CONFIG_HOME", ".config");
  return base.empty() ? std::string() : (base / "quarnwick" / "quarnwick.conf").string();
}

bool Settings::Load(const std::string& file) {
  path = file;
  values.clear();
  std::error_code missing;
  if (!std::filesystem::exists(file, missing)) return true;
  std::string text, problem;
  if (!ReadWholeFile(file, &text, &problem) || !Read(text, &problem)) {
    std::fprintf(stderr, "Quarnwick: the settings file %s: %s; the defaults stand for it.\n", file.c_str(),
                 problem.c_str());
    return false;
  }
  return true;
}

bool Settings::Read(const std::string& text, std::string* problem) {
  values.clear();
  problem->clear();
  std::size_t lineNumber = 0;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t end = text.find('\n', at);
    if (end == std::string::npos) end = text.size();
    const std::string line = Trim(std::string_view(text).substr(at, end - at));
    at = end + 1;
    ++lineNumber;
    if (line.empty() || line[0] == '#' || line[0] == ';' || line[0] == '[') continue;
    const std::size_t equals = line.find('=');
    const std::string key = equals == std::string::npos ? std::string() : Trim(line.substr(0, equals));
    const std::string value = equals == std::string::npos ? std::string() : Trim(line.substr(equals + 1));
    const KnownKey* known = Known(key);
    int parsed = 0;
    const bool usable = IsKeyName(key) && value.find('\0') == std::string::npos &&
                        (!known || Parse(*known, value, &parsed)) && !Find(key);
    if (!usable) {
      if (problem->empty()) *problem = "line " + std::to_string(lineNumber) + " cannot be used";
      continue;
    }
    values.emplace_back(key, value);
  }
  return problem->empty();
}

std::string Settings::Text() const {
  std::string text = "# Quarnwick's settings. The game writes this file when a setting changes.\n";
  for (const KnownKey& k : kKnownKeys) {
    const std::string value = IsFlag(k) ? (Flag(k.name) ? "yes" : "no") : std::to_string(Number(k.name));
    text += "\n# " + std::string(k.comment) + "\n" + k.name + " = " + value + "\n";
  }
  bool first = true;
  for (const auto& [key, value] : values) {
    if (Known(key)) continue;
    if (first) text += "\n# Kept as they were found:\n";
    first = false;
    text += key + " = " + value + "\n";
  }
  return text;
}

const std::string* Settings::Find(const std::string& key) const {
  for (const auto& entry : values)
    if (entry.first == key) return &entry.second;
  return nullptr;
}

int Settings::Number(const char* key) const {
  const KnownKey* known = Known(key);
  if (!known) return 0;
  const std::string* text = Find(key);
  int value = known->fallback;
  if (text) Parse(*known, *text, &value);
  return value;
}

bool Settings::Flag(const char* key) const { return Number(key) != 0; }

void Settings::SetNumber(const char* key, int value) { Set(key, std::to_string(value)); }

void Settings::SetFlag(const char* key, bool value) { Set(key, value ? "yes" : "no"); }

void Settings::Set(const char* key, const std::string& value) {
  const KnownKey* known = Known(key);
  int parsed = 0;
  if (!known || !Parse(*known, value, &parsed)) return;
  const std::string before = Text();
  bool found = false;
  for (auto& entry : values) {
    if (entry.first == key) entry.second = value, found = true;
  }
  if (!found) values.emplace_back(key, value);
  if (path.empty() || Text() == before) return;
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
  std::string problem;
  if (!WriteFileAtomically(path, Text(), &problem))
    std::fprintf(stderr, "Quarnwick: the settings could not be written to %s: %s\n", path.c_str(), problem.c_str());
}

}  // namespace platform
