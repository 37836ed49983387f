// Any bytes as a saved game: the reader either gives a game whose every number lies in its
// range or refuses the text with a reason; it never crashes, and what it reads it can write.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "persist/SavedGame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string reason;
  const auto game = ParseSavedGame(std::string_view(reinterpret_cast<const char*>(data), size), &reason);
  if (!game) {
    if (reason.empty()) std::abort();
    return 0;
  }
  for (const auto& slot : game->party) {
    if (!slot) continue;
    if (slot->species < 0 || slot->species >= kSpeciesCount || slot->level < 1 || slot->hitPoints < 0) std::abort();
    if (slot->name.size() > 63) std::abort();
  }
  if (game->textSpeed < 1 || game->textSpeed > 10 || game->difficulty < 0 || game->difficulty > 2) std::abort();
  // What was read can be written out and read again.
  if (!ParseSavedGame(FormatSavedGame(*game), &reason)) std::abort();
  return 0;
}
