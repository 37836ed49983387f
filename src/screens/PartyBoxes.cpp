#include "screens/PartyBoxes.h"

#include "creatures/PartyStrip.h"
#include "graphics/Picture.h"
#include "ui/ObjectList.h"

void AddPartyBoxes(ObjectList& widgets, int firstId) {
  for (int slot = 0; slot < kPartySize; ++slot) {
    const Rect box = PartyBoxRect(slot);
    widgets.Add(new MonsterBox(static_cast<std::uint32_t>(firstId + slot), "MonsterBox", "dat\\mapModeOutline.bmp",
                               box.left, box.top, box.right, box.bottom));
  }
}

void DrawPartyBoxes(Picture& frame) {
  for (int slot = 0; slot < kPartySize; ++slot) {
    const Rect box = PartyBoxRect(slot);
    frame.DrawKeyed(box.left, box.top, 1);
  }
  drawPartyStrip(-1);
}
