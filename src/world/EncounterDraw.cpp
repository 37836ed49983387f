#include "world/EncounterDraw.h"

#include <algorithm>

#include "creatures/SpeciesTable.h"
#include "shell/Random.h"
#include "world/AreaFile.h"

namespace {

// low + rand() % span, in 64 bits so that no range of 32-bit ends overflows; one random
// call whatever the span, and the minimum for a span of zero.
std::int64_t DrawFrom(std::int64_t low, std::int64_t span) {
  const std::int64_t roll = Rand();
  return span == 0 ? low : low + roll % span;
}

}  // namespace

EncounterDraw DrawEncounter(const EncounterArea& area) {
  const std::int64_t species =
      DrawFrom(area.speciesMin, std::int64_t{area.speciesMax} - area.speciesMin + 1);
  const std::int64_t level = area.levelMax == area.levelMin
                                 ? area.levelMin
                                 : DrawFrom(area.levelMin, std::int64_t{area.levelMax} - area.levelMin);
  return {static_cast<int>(std::clamp<std::int64_t>(species, 0, kSpeciesCount - 1)),
          static_cast<int>(std::clamp<std::int64_t>(level, 1, kMostEncounterLevel))};
}
