#pragma once
// The island's market, where the player gives a Kindrel away to make room in the party:
// pick a Kindrel by its box, answer the question with "Give Away", and it is gone for
// good, with nothing in return. The last Kindrel of the party is never given away.
#include <cstdint>

#include "screens/PlaceScreen.h"

class MarketScreen : public PlaceScreen {
 public:
  MarketScreen(std::uint32_t id, const char* name);

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kDone = 0, kGiveAway = 1, kFirstBox = 2 };
  static constexpr std::int32_t kNoSlot = 6;

  // The party slot picked for giving away, or kNoSlot. It may name an empty slot: after a
  // Kindrel has been given away, or when the box of an empty slot was clicked.
  std::int32_t chosenSlot = kNoSlot;

 private:
  void Choose() override;
  void GiveAway();
  void DrawPlace() override;
};
