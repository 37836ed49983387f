#pragma once
// The row of six party boxes along the bottom of the screen that several screens share.
// The calling screen draws the box frames; the strip draws what is in each box.
#include "creatures/PlayerRecord.h"
#include "graphics/Display.h"

// Box k (0..5): left 6 + 105 k, top 375, right 110 + 105 k, bottom 480. Each box is one
// pixel wider than the gap to the next.
Rect PartyBoxRect(int slot);

// For every slot that holds a Kindrel, but the excluded one (-1 leaves none out): its
// picture, its hit-point bar, "Level: n" and its name, and "Fainted!" when it has no hit
// points left; every text in black and again in white one pixel up and left.
void drawPartyStrip(const PlayerRecord& record, int excludedSlot);
// The same for the game's one record.
void drawPartyStrip(int excludedSlot);

// The top row of a box's hit-point bar: the bottom row (bottom - 1) when no hit points
// are left, top + 1 at full health.
int HitPointBarTop(const Kindrel& creature, const Rect& box);
