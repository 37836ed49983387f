#include "creatures/PartyStrip.h"

#include <cstdio>

#include "graphics/Text.h"

Rect PartyBoxRect(int slot) { return {6 + 105 * slot, 375, 110 + 105 * slot, 480}; }

int HitPointBarTop(const Kindrel& creature, const Rect& box) {
  const int bottom = box.bottom - 1;
  const int most = creature.MaxHitPoints();
  if (most <= 0) return bottom;
  return bottom - (bottom - (box.top + 1)) * creature.hitPoints / most;
}

namespace {

// White text over its black shadow.
void ShadowedText(int font, const char* text, const Rect& face, unsigned format) {
  SetTextColour(255, 255, 255);
  DrawShadowedTextBox(font, text, face, format, PackColour(0, 0, 0));
}

void DrawHitPointBar(const Kindrel& creature, const Rect& box) {
  Surface* target = theDisplay->DrawTarget();
  if (!target) return;
  // Right and bottom are exclusive, so a fainted creature's bar (top at bottom - 1) is
  // empty.
  const Rect bar{box.right - 5, HitPointBarTop(creature, box), box.right, box.bottom - 1};
  if (bar.Empty()) return;
  target->Fill(bar, theDisplay->MatchColour(target, creature.HitPointColour()));
}

void DrawBox(const Kindrel& creature, const Rect& box) {
  const int left = box.left, top = box.top, right = box.right, bottom = box.bottom;
  if (creature.picture) creature.picture->DrawKeyed(left, top, 1);
  DrawHitPointBar(creature, box);

  char level[32];
  std::snprintf(level, sizeof level, "Level: %d", creature.level);
  ShadowedText(0, level, {left + 1, top + 1, right - 1, top + 12}, DT_LEFT);
  ShadowedText(0, creature.name, {left + 1, bottom - 14, right - 1, bottom - 1}, DT_LEFT);
  if (creature.hitPoints < 1) {
    ShadowedText(3, "Fainted!", {left + 1, top + 40, right - 1, bottom - 1}, DT_CENTER);
  }
}

}  // namespace

void drawPartyStrip(const PlayerRecord& record, int excludedSlot) {
  if (!theDisplay) return;
  for (int slot = 0; slot < kPartySize; ++slot) {
    if (slot == excludedSlot || !record.party[slot]) continue;
    DrawBox(*record.party[slot], PartyBoxRect(slot));
  }
}

void drawPartyStrip(int excludedSlot) { drawPartyStrip(thePlayer, excludedSlot); }
