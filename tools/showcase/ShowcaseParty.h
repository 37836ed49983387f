#pragma once
// A party that shows every look of the party strip at once, for the screenshot tour and
// for tests of screens that draw the party.
#include "creatures/PlayerRecord.h"

// Replaces the record's party with six Kindrels of different species and levels: slot 0
// Mookie the Fleenu at full health, slot 1 at red hit points, slot 2 at yellow, slot 3
// fainted, slots 4 and 5 at full health.
void FillShowcaseParty(PlayerRecord& record);
