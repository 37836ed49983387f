#include "ShowcaseParty.h"

void FillShowcaseParty(PlayerRecord& record) {
  record.ReleaseParty();
  const struct {
    int species;
    int level;
  } members[kPartySize] = {
      {4, 6},    // Fleenu
      {0, 3},    // Bluberd
      {32, 9},   // Gradon
      {23, 12},  // Ember
      {27, 15},  // Spidren
      {35, 20},  // Stondre
  };
  for (int slot = 0; slot < kPartySize; ++slot)
    record.party[slot] = Kindrel::Create(members[slot].species, members[slot].level);
  record.party[0]->SetName("Mookie");
  Kindrel& red = *record.party[1];
  red.hitPoints = red.MaxHitPoints() / 4;            // 1 of 6
  Kindrel& yellow = *record.party[2];
  yellow.hitPoints = yellow.MaxHitPoints() * 2 / 5;  // 36 of 90
  record.party[3]->hitPoints = 0;
}
