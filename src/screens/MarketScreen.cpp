#include "screens/MarketScreen.h"

#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "shell/TextFormat.h"

MarketScreen::MarketScreen(std::uint32_t id, const char* name)
    : PlaceScreen(id, name, "dat\\market-back.bmp", "dat\\fanfare5.wav", kFirstBox) {
  widgets.Add(new Button(kGiveAway, "Give Away", 64, 120, 340, 320, 370, 2));
  widgets.Add(new Button(kDone, "Done", 64, 320, 340, 520, 370, 2));
  chosenSlot = kNoSlot;
}

void MarketScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kDone) {
    Leave();
  } else if (id == kGiveAway) {
    GiveAway();
  } else if (BoxSlot(id) >= 0) {
    chosenSlot = BoxSlot(id);
  }
}

void MarketScreen::GiveAway() {
  // Quietly refused without a chosen Kindrel, and for the last one of the party.
  if (chosenSlot < 0 || chosenSlot >= kPartySize) return;
  auto& creature = thePlayer.party[chosenSlot];
  if (!creature || thePlayer.PartyCount() < 2) return;
  creature->Release();
  creature.reset();
  // The slot stays empty: the Kindrels after it keep their places, and chosenSlot now
  // names the empty slot, which brings the prompt back.
}

void MarketScreen::DrawPlace() {
  const Kindrel* chosen = chosenSlot >= 0 && chosenSlot < kPartySize ? thePlayer.party[chosenSlot].get() : nullptr;
  if (chosen) {
    DrawTextBox(2, Format("Do you want to give away %s?", chosen->name).c_str(), {100, 80, 540, 330}, nullptr,
                DT_CENTER | DT_WORDBREAK);
    if (chosen->picture) chosen->picture->DrawKeyed(320, 240, 0);
  } else {
    DrawTextBox(2, "Choose a Kindrel you want to give away.", {100, 80, 540, 330}, nullptr, DT_CENTER | DT_WORDBREAK);
  }
}
