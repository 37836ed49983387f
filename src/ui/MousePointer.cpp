#include "ui/MousePointer.h"

#include <algorithm>

#include "platform/Window.h"

MousePointer::MousePointer() {
  platform::SetSystemCursorVisible(false);
  pictures[0].LoadPicture("dat\\mouse00.bmp");
  pictures[1].LoadPicture("dat\\mouse00.bmp");
}

MousePointer::~MousePointer() = default;

void MousePointer::PutBackground() { pictures[1].DrawOpaque(x, y, 1); }

void MousePointer::MoveTo(int nx, int ny) {
  // A move of the mouse hides the system arrow; redrawing in place (x of -1) leaves it.
  if (nx != -1) platform::SetSystemCursorVisible(false);
  if (!visible) return;
  if (!fresh) PutBackground();
  if (nx != -1) {
    x = nx;
    y = ny;
  }
  // Save what the pointer is about to cover. It is taken from the frame being drawn, so
  // that putting it back restores exactly that frame in both display modes.
  Surface* frame = theDisplay ? theDisplay->DrawTarget() : nullptr;
  Surface* saved = pictures[1].surface.get();
  if (frame && saved) {
    const Rect covered{std::max(x, bounds.left), std::max(y, bounds.top),
                       std::min(x + pictures[0].Width(), bounds.right), std::min(y + pictures[0].Height(), bounds.bottom)};
    if (!covered.Empty()) {
      saved->CopyFrom(covered.left - x, covered.top - y, *frame, covered, false);
    }
  }
  pictures[0].DrawKeyed(x, y, 1);
  fresh = 0;
}

void MousePointer::Show(int on) {
  if (on) {
    if (!visible) visible = 1;
    fresh = 1;
    MoveTo(-1, -1);
    return;
  }
  if (visible) {
    PutBackground();
    visible = 0;
  }
}
