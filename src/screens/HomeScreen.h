#pragma once
// The player's home on the island: the party spends the night there and wakes up fully
// healed. The party is healed once per visit, when the screen is made; the player can then
// look at each Kindrel (and reorder the party) before leaving with "EXIT".
#include "screens/PlaceScreen.h"

class HomeScreen : public PlaceScreen {
 public:
  HomeScreen(std::uint32_t id, const char* name);

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kExit = 0, kFirstBox = 1 };

 private:
  void Choose() override;
  void DrawPlace() override;
};
