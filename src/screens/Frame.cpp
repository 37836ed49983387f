#include "screens/Frame.h"

#include "audio/SoundEffect.h"
#include "creatures/PartyStrip.h"
#include "graphics/Display.h"
#include "graphics/Picture.h"
#include "shell/Globals.h"
#include "ui/ObjectList.h"
#include "ui/MousePointer.h"

void BeginFrame() {
  if (theMousePointer) theMousePointer->Show(0);
}

void EndFrame() {
  if (theMousePointer) theMousePointer->Show(1);
  if (theDisplay) theDisplay->Present();
}

void PlayClick() { PlaySound(0, clickSound); }

void TilePicture(Picture& picture) {
  const int w = picture.Width(), h = picture.Height();
  if (w <= 0 || h <= 0) {
    theDisplay->ClearScreen(0, 0, 0);
    return;
  }
  for (int y = 0; y < 480; y += h)
    for (int x = 0; x < 640; x += w) picture.DrawOpaque(x, y, 1);
}

void DrawPartyFrames(Picture& frame) {
  for (int slot = 0; slot < kPartySize; ++slot) {
    const Rect box = PartyBoxRect(slot);
    frame.DrawKeyed(box.left, box.top, 1);
  }
}

void AddPartyBoxes(ObjectList& widgets, int firstId) {
  for (int slot = 0; slot < kPartySize; ++slot) {
    const Rect box = PartyBoxRect(slot);
    widgets.Add(new MonsterBox(static_cast<std::uint32_t>(firstId + slot), "MonsterBox", "dat\\mapModeOutline.bmp",
                               box.left, box.top, box.right, box.bottom));
  }
}
