#include "screens/HomeScreen.h"

#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"

namespace {

constexpr const char* kRestText =
    "You and your Kindrels spend the night resting at home, and everyone wakes up fully healed.";

}  // namespace

HomeScreen::HomeScreen(std::uint32_t id, const char* name)
    : PlaceScreen(id, name, "dat\\home-back.bmp", "dat\\fanfare8.wav", kFirstBox) {
  widgets.Add(new Button(kExit, "EXIT", 64, 220, 350, 420, 370, 2));
  // One visit, one night's rest: coming back from a Kindrel's page does not heal again.
  thePlayer.HealParty();
}

void HomeScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kExit) Leave();
  else InspectBox(id);
}

void HomeScreen::DrawPlace() { DrawTextBox(2, kRestText, {100, 80, 540, 330}, nullptr, DT_CENTER | DT_WORDBREAK); }
