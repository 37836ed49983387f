#pragma once
// The game in progress: the party of up to six Kindrels, where the player stands, which
// wizards are beaten, the three gameplay options and the items. There is one record for
// the whole run of the program; every screen reads and changes it directly.
#include <cstdint>
#include <memory>

#include "creatures/Kindrel.h"
#include "ui/List.h"
#include "world/Item.h"
#include "world/LocationTable.h"

inline constexpr int kPartySize = 6;
inline constexpr int kWizardCount = 6;

enum Difficulty : int {
  kEasy = 0,
  kNormal = 1,
  kHard = 2,
};

class PlayerRecord {
 public:
  PlayerRecord();
  ~PlayerRecord();
  PlayerRecord(const PlayerRecord&) = delete;
  PlayerRecord& operator=(const PlayerRecord&) = delete;

  // The reset of a new game: every party slot emptied (its Kindrel released), every wizard
  // flag and the first-catch flag 0, the places' open flags as a new game has them. The
  // options and the items stay as they are.
  void NewGameReset();
  // A whole new game as the main menu starts it: the reset, then a level-1 Fleenu named
  // "Mookie" in slot 0, standing at home.
  void StartNewGame();

  // The first empty slot, or -1 when all six are full.
  int FirstEmptySlot() const;
  // The first slot whose Kindrel can fight (hit points above 0), or -1 when none can.
  int FirstFitSlot() const;
  bool HasFighter() const { return FirstFitSlot() >= 0; }
  int PartyCount() const;
  // Puts the creature into the first empty slot; returns the slot, or -1 (and the creature
  // is released) when the party is full.
  int AddToParty(std::unique_ptr<Kindrel> creature);
  // Releases every Kindrel; every slot is empty.
  void ReleaseParty();
  // The home's healing: full hit points and clean status values for everyone.
  void HealParty();
  // The end of a combat: every party creature's status values back to 0.
  void ClearPartyStatus();
  // Appends an item with the text to the end of the list.
  void AddItem(const char* text);
  // Deletes every item.
  void ClearItems();

  std::unique_ptr<Kindrel> party[kPartySize];
  LocationInfo* currentLocation = nullptr;
  std::int32_t wizardDefeated[kWizardCount] = {};
  std::int32_t difficulty = kNormal;            // 0 EASY, 1 NORMAL, 2 HARD
  std::int32_t textSpeed = 5;                   // 1..10
  std::int32_t playerIsMale = 1;                // 1 MALE, 0 FEMALE
  std::int32_t firstCatchDone = 0;              // 1 after the first attempt to catch
  List items;                                   // of Item, in the order of gaining
};

// The one record of the run. It is never destroyed (the program's end frees it), so that
// no picture of its Kindrels outlives the surfaces' bookkeeping at exit; the game's
// shutdown releases the party with ReleaseParty.
extern PlayerRecord& thePlayer;
