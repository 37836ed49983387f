#pragma once
// The saved game: a plain text file, line by line, holding where the player stands, the
// party, the open places, the beaten wizards, the settings and the items. A save is
// written whole to a temporary file beside the target and then renamed over it, so an old
// save is never half overwritten; a load is read and checked whole before any of the game
// is replaced.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "creatures/PlayerRecord.h"

struct SavedCreature {
  std::string name;
  int species = 0;
  int level = 1;
  int hitPoints = 0;  // kept as read, also above the creature's maximum
  std::uint32_t experience = 0;
};

struct SavedGame {
  int mapX = 0, mapY = 0;
  std::optional<SavedCreature> party[kPartySize];
  int open[kLocationCount] = {};
  int wizardDefeated[kWizardCount] = {};
  int difficulty = kNormal;
  int playerIsMale = 1;
  int textSpeed = 5;
  int firstCatchDone = 0;
  std::vector<std::string> items;
};

// The game as it stands, and the file's text for it.
SavedGame CaptureGame(const PlayerRecord& record);
std::string FormatSavedGame(const SavedGame& game);
// The file's text read back; on failure nullopt and what is wrong in *error.
std::optional<SavedGame> ParseSavedGame(std::string_view text, std::string* error);
// Replaces the record's game by the saved one.
void ApplySavedGame(const SavedGame& game, PlayerRecord& record);

// The name a save is written to: the chosen path with ".gam" for whatever followed the
// first '.' of its file name; empty for an empty path.
std::string FinalSaveName(const std::string& chosen);
// Saves the game to the chosen path (see FinalSaveName). On failure a message box names the
// file and the reason and false is returned; an earlier file of that name is left as it was.
// A save over an earlier one keeps that one beside it as name.gam.bak.
bool WriteSavedGame(const std::string& chosen);
// Loads the game from the file. A file that cannot be read or is not a whole saved game is
// refused with a message box saying what is wrong, and nothing of the game changes.
bool ReadSavedGame(const std::string& path);
