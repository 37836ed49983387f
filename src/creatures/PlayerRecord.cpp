#include "creatures/PlayerRecord.h"

#include <utility>

namespace {
constexpr int kStartingSpecies = 4;  // Fleenu
}

PlayerRecord& thePlayer = *new PlayerRecord;

PlayerRecord::PlayerRecord() = default;

PlayerRecord::~PlayerRecord() { ReleaseParty(); }

void PlayerRecord::NewGameReset() {
  ReleaseParty();
  for (auto& flag : wizardDefeated) flag = 0;
  firstCatchDone = 0;
  ResetLocationsForNewGame();
}

void PlayerRecord::StartNewGame() {
  NewGameReset();
  party[0] = Kindrel::Create(kStartingSpecies, 1);
  party[0]->SetName("Mookie");
  currentLocation = &locationTable[0];
}

int PlayerRecord::FirstEmptySlot() const {
  for (int slot = 0; slot < kPartySize; ++slot)
    if (!party[slot]) return slot;
  return -1;
}

int PlayerRecord::FirstFitSlot() const {
  for (int slot = 0; slot < kPartySize; ++slot)
    if (party[slot] && party[slot]->hitPoints > 0) return slot;
  return -1;
}

int PlayerRecord::PartyCount() const {
  int count = 0;
  for (const auto& creature : party) count += creature != nullptr;
  return count;
}

int PlayerRecord::AddToParty(std::unique_ptr<Kindrel> creature) {
  const int slot = FirstEmptySlot();
  if (slot >= 0) party[slot] = std::move(creature);
  return slot;
}

void PlayerRecord::ReleaseParty() {
  for (auto& creature : party) {
    if (creature) creature->Release();
    creature.reset();
  }
}

void PlayerRecord::HealParty() {
  for (auto& creature : party)
    if (creature) creature->Heal();
}

void PlayerRecord::ClearPartyStatus() {
  for (auto& creature : party)
    if (creature) creature->ClearStatus();
}

void PlayerRecord::AddItem(const char* text) { items.Append(new Item(text)); }

void PlayerRecord::ClearItems() {
  while (ScreenObject* item = items.First()) {
    items.Remove(item);
    delete item;
  }
}
