#include "persist/SavedGame.h"

#include <cstdio>

#include <cctype>
#include <climits>
#include <cstring>

#include "platform/AtomicFile.h"
#include "platform/Window.h"
#include "shell/TextFormat.h"
#include "world/Item.h"

namespace {

constexpr int kHighestLevel = 9999;
// The hit-point bars multiply the hit points by their width in pixels (200 at most); more
// than this would not fit a 32-bit number there.
constexpr int kMostHitPoints = INT_MAX / 200;
constexpr std::size_t kLongestFile = 1 << 20;
constexpr std::size_t kItemLine = 126;  // longer item lines are read in pieces of this size

// Reads the text the way the C library's "%d" and line reads do, counting lines for the
// messages.
class Reader {
 public:
  explicit Reader(std::string_view text) : text(text) {}

  std::optional<long long> Int() {
    while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos]))) Step();
    std::size_t at = pos;
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) negative = text[at++] == '-';
    long long value = 0;
    std::size_t digits = 0;
    while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at]))) {
      value = value * 10 + (text[at++] - '0');
      if (value > UINT32_MAX) return std::nullopt;  // far too large to be a number of the game
      ++digits;
    }
    if (digits == 0) return std::nullopt;
    pos = at;
    return negative ? -value : value;
  }
  // The rest of the current line, without its line end; nullopt at the end of the text.
  std::optional<std::string> Line(std::size_t longest = std::string::npos) {
    if (pos >= text.size()) return std::nullopt;
    std::string line;
    while (pos < text.size() && text[pos] != '\n' && line.size() < longest) line += text[pos++];
    if (pos < text.size() && text[pos] == '\n') Step();
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
  }
  // The next whole line after the numbers just read.
  std::optional<std::string> NextLine() {
    SkipRestOfLine();
    return Line();
  }
  // After numbers, the rest of their line; at the start of a line, nothing.
  void SkipRestOfLine() {
    if (pos == 0 || text[pos - 1] == '\n') return;
    while (pos < text.size() && text[pos] != '\n') ++pos;
    if (pos < text.size()) Step();
  }
  int LineNumber() const { return line; }

 private:
  void Step() {
    if (text[pos] == '\n') ++line;
    ++pos;
  }
  std::string_view text;
  std::size_t pos = 0;
  int line = 1;
};

// Reads one number that must lie in low..high; false with a message otherwise.
bool Number(Reader& in, const char* what, long long low, long long high, int* out, std::string* error) {
  const auto value = in.Int();
  if (!value) {
    *error = Format("line %d: %s is missing or not a number", in.LineNumber(), what);
    return false;
  }
  if (*value < low || *value > high) {
    *error = Format("line %d: %s is %lld, not %lld to %lld", in.LineNumber(), what, *value, low, high);
    return false;
  }
  *out = static_cast<int>(*value);
  return true;
}

bool ReadCreature(Reader& in, SavedCreature* creature, std::string* error) {
  const auto name = in.Line();
  if (!name) {
    *error = Format("line %d: a Kindrel's name is missing", in.LineNumber());
    return false;
  }
  creature->name = name->substr(0, 63);
  if (!Number(in, "the species", 0, kSpeciesCount - 1, &creature->species, error)) return false;
  if (!Number(in, "the level", 1, kHighestLevel, &creature->level, error)) return false;
  if (!Number(in, "the hit points", 0, kMostHitPoints, &creature->hitPoints, error)) return false;
  // Experience is unsigned. A negative number is taken modulo 2^32, as "%d" stores it in
  // an unsigned field.
  const auto experience = in.Int();
  if (!experience || *experience < INT_MIN) {
    *error = Format("line %d: the experience is missing or not a number", in.LineNumber());
    return false;
  }
  creature->experience = static_cast<std::uint32_t>(*experience);
  return true;
}

}  // namespace

SavedGame CaptureGame(const PlayerRecord& record) {
  SavedGame game;
  const LocationInfo* here = record.currentLocation ? record.currentLocation : &locationTable[0];
  game.mapX = here->mapX;
  game.mapY = here->mapY;
  for (int slot = 0; slot < kPartySize; ++slot) {
    const Kindrel* k = record.party[slot].get();
    if (k) game.party[slot] = SavedCreature{k->name, k->species->index, k->level, k->hitPoints, k->experience};
  }
  for (int row = 0; row < kLocationCount; ++row) game.open[row] = locationTable[row].open;
  for (int t = 0; t < kWizardCount; ++t) game.wizardDefeated[t] = record.wizardDefeated[t];
  game.difficulty = record.difficulty;
  game.playerIsMale = record.playerIsMale;
  game.textSpeed = record.textSpeed;
  game.firstCatchDone = record.firstCatchDone;
  List& items = const_cast<List&>(record.items);
  for (ScreenObject* item = items.First(); item; item = items.Next()) game.items.push_back(item->GetName());
  return game;
}

std::string FormatSavedGame(const SavedGame& game) {
  std::string out = Format("%d %d\n", game.mapX, game.mapY);
  for (const auto& slot : game.party) {
    if (!slot) {
      out += "NO\n";
      continue;
    }
    out += "YES\n" + slot->name + "\n";
    out += Format("%d %d %d %u\n", slot->species, slot->level, slot->hitPoints, slot->experience);
  }
  for (int flag : game.open) out += flag ? "1 " : "0 ";
  out += "\n";
  for (int flag : game.wizardDefeated) out += Format("%d ", flag);
  out += "\n";
  out += Format("%d %d %d %d\n", game.difficulty, game.playerIsMale, game.textSpeed, game.firstCatchDone);
  for (const std::string& item : game.items) out += item + "\n";
  out += "ITEMEND\n";
  return out;
}

std::optional<SavedGame> ParseSavedGame(std::string_view text, std::string* error) {
  std::string ignored;
  if (!error) error = &ignored;
  Reader in(text);
  SavedGame game;
  if (!Number(in, "the map point", INT_MIN, INT_MAX, &game.mapX, error)) return std::nullopt;
  if (!Number(in, "the map point", INT_MIN, INT_MAX, &game.mapY, error)) return std::nullopt;
  for (auto& slot : game.party) {
    const auto first = in.NextLine();
    if (!first) {
      *error = Format("line %d: the party ends too early", in.LineNumber());
      return std::nullopt;
    }
    if (first->empty() || (*first)[0] != 'Y') continue;
    SavedCreature creature;
    if (!ReadCreature(in, &creature, error)) return std::nullopt;
    slot = creature;
  }
  for (int& flag : game.open)
    if (!Number(in, "a place's open flag", 0, 1, &flag, error)) return std::nullopt;
  for (int& flag : game.wizardDefeated)
    if (!Number(in, "a wizard's flag", 0, 1, &flag, error)) return std::nullopt;
  if (!Number(in, "the difficulty", 0, 2, &game.difficulty, error) ||
      !Number(in, "the player's figure", 0, 1, &game.playerIsMale, error) ||
      !Number(in, "the text speed", 1, 10, &game.textSpeed, error) ||
      !Number(in, "the first catch", 0, 1, &game.firstCatchDone, error)) {
    return std::nullopt;
  }
  in.SkipRestOfLine();
  while (const auto line = in.Line(kItemLine)) {
    if (line->compare(0, 7, "ITEMEND") == 0) break;
    game.items.push_back(*line);
  }
  return game;
}

void ApplySavedGame(const SavedGame& game, PlayerRecord& record) {
  for (LocationInfo& place : locationTable) {
    if (place.mapX == game.mapX && place.mapY == game.mapY) record.currentLocation = &place;
  }
  for (int slot = 0; slot < kPartySize; ++slot) {
    if (record.party[slot]) record.party[slot]->Release();
    record.party[slot].reset();
    const auto& saved = game.party[slot];
    if (!saved) continue;
    auto creature = Kindrel::Create(saved->species, saved->level);
    if (!creature) continue;
    creature->hitPoints = saved->hitPoints;
    creature->experience = saved->experience;
    creature->SetName(saved->name.c_str());
    record.party[slot] = std::move(creature);
  }
  for (int row = 0; row < kLocationCount; ++row) locationTable[row].open = game.open[row];
  for (int t = 0; t < kWizardCount; ++t) record.wizardDefeated[t] = game.wizardDefeated[t];
  record.difficulty = game.difficulty;
  record.playerIsMale = game.playerIsMale;
  record.textSpeed = game.textSpeed;
  record.firstCatchDone = game.firstCatchDone;
  record.ClearItems();
  for (const std::string& name : game.items) record.AddItem(name.c_str());
}

std::string FinalSaveName(const std::string& chosen) {
  if (chosen.empty()) return {};
  const auto slash = chosen.find_last_of('/');
  const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
  const auto dot = chosen.find('.', nameStart);
  return (dot == std::string::npos ? chosen : chosen.substr(0, dot)) + ".gam";
}

bool WriteSavedGame(const std::string& chosen) {
  const std::string path = FinalSaveName(chosen);
  if (path.empty()) return false;
  // The save it replaces stays beside it as name.gam.bak, one generation, written once the
  // new save is whole.
  std::string previous, reason;
  const bool replacing = platform::ReadWholeFile(path, &previous, &reason);
  if (platform::WriteFileAtomically(path, FormatSavedGame(CaptureGame(thePlayer)), &reason)) {
    if (replacing && !platform::WriteFileAtomically(path + ".bak", previous, &reason))
      std::fprintf(stderr, "Quarnwick: the previous save could not be kept as %s.bak: %s\n", path.c_str(), reason.c_str());
    return true;
  }
  platform::MessageBox(platform::kMainWindow, Format("The game could not be saved to %s: %s.", path.c_str(), reason.c_str()),
                       "Cannot save the game", platform::MB_OK);
  return false;
}

bool ReadSavedGame(const std::string& path) {
  std::string text, reason;
  std::optional<SavedGame> game;
  if (!platform::ReadWholeFile(path, &text, &reason)) {
    reason = Format("%s", reason.c_str());
  } else if (text.size() > kLongestFile) {
    reason = "it is far too long to be a saved game";
  } else {
    game = ParseSavedGame(text, &reason);
  }
  if (!game) {
    platform::MessageBox(platform::kMainWindow, Format("%s is not a saved game that can be loaded: %s.", path.c_str(), reason.c_str()),
                         "Cannot load the game", platform::MB_OK);
    return false;
  }
  ApplySavedGame(*game, thePlayer);
  return true;
}
