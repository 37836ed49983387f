#pragma once
// Everything about one Kindrel of the party: picture, species, numbers, status effects,
// resistances and spells. The player renames it by typing, looks at another by clicking
// its box, and (where offered) changes the party's order with "SWAP".
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class CreatureInfoScreen : public GameMode {
 public:
  CreatureInfoScreen(std::uint32_t id, const char* name, int slot, int withSwap);
  ~CreatureInfoScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  enum WidgetId { kExit = 0, kSwap = 1, kNameField = 2, kFirstBox = 3 };
  ObjectList widgets;
  Box* nameField = nullptr;
  Picture background;
  Picture frame;
  int selectedSlot;
  int swapArmed = 0;

 private:
  void Choose();
  void ChooseBox(int slot);
  void StoreName();
  void ShowName(int slot);
  void Draw();
  void DrawDetails();
};

// Opens the page of a party slot above the screen, when a Kindrel is in it; withSwap 1
// offers "SWAP" on it.
void InspectSlot(GameMode& screen, int slot, int withSwap);
