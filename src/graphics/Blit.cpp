#include "graphics/Blit.h"

void SetBlitKeyed(int on) {
  if (theDisplay) theDisplay->blitMode = on ? kBlitKeyed : kBlitOpaque;
}

int ClipToRect(const Surface& surface, int x, int y, int topLeft, const Rect& clip, Rect* source, int* targetX,
               int* targetY) {
  const int w = surface.Width();
  const int h = surface.Height();
  const int hx = topLeft == 1 ? 0 : w / 2;
  const int hy = topLeft == 1 ? 0 : h / 2;
  Rect s{0, 0, w, h};
  if (x - hx + w > clip.right) s.right = clip.right - x + hx;
  if (y - hy + h > clip.bottom) s.bottom = clip.bottom - y + hy;
  if (x - hx < clip.left) {
    s.left = clip.left + hx - x;
    *targetX = clip.left;
  } else {
    *targetX = x - hx;
  }
  if (y - hy < clip.top) {
    s.top = clip.top + hy - y;
    *targetY = clip.top;
  } else {
    *targetY = y - hy;
  }
  *source = s;
  return (s.left >= s.right || s.top >= s.bottom) ? 0 : 1;
}

namespace {

struct Placement {
  Rect source;
  int x = 0;
  int y = 0;
};

// The common start of every picture drawing: a lost front surface is restored and nothing
// is drawn; a missing or wholly clipped picture draws nothing. True when there is
// something to draw; otherwise *result is what the drawing call returns.
bool Place(Surface* surface, int x, int y, int topLeft, Placement* placement, int* result) {
  *result = -1;
  if (!theDisplay) return false;
  *result = theDisplay->RestoreFront();
  if (*result != 0 || !surface) return false;
  return ClipToRect(*surface, x, y, topLeft, theDisplay->ClipRect, &placement->source, &placement->x, &placement->y);
}

}  // namespace

int DrawSurface(Surface* surface, int x, int y, int topLeft) {
  Placement at;
  int result = 0;
  if (!Place(surface, x, y, topLeft, &at, &result)) return result;
  const Rect& source = at.source;
  const int tx = at.x, ty = at.y;
  Surface* target = theDisplay->DrawTarget();
  if (!target) return -1;
  return target->CopyFrom(tx, ty, *surface, source, theDisplay->blitMode == kBlitKeyed) ? 0 : -1;
}

bool LockDrawTarget() {
  Display& d = *theDisplay;
  if (d.lockedPointer) return true;
  Surface* target = d.DrawTarget();
  if (!target) return false;
  const Rect area = d.ClipRect;
  if (area.left < 0 || area.top < 0 || area.right > target->Width() || area.bottom > target->Height()) return false;
  std::uint16_t* base = target->Lock();
  if (!base) return false;
  d.lockedArea = area;
  d.lockedPointer = base + static_cast<std::size_t>(area.top) * target->Pitch() + area.left;
  return true;
}

std::uint16_t* LockedPixel(int x, int y) {
  if (!theDisplay || !LockDrawTarget()) return nullptr;
  const Display& d = *theDisplay;
  return d.lockedPointer + static_cast<std::ptrdiff_t>(y - d.lockedArea.top) * d.DrawTarget()->Pitch() + (x - d.lockedArea.left);
}

std::uint16_t AddPixels(std::uint16_t d, std::uint16_t s) {
  if (s == 0) return d;
  if (d == 0) return s;
  const Display& display = *theDisplay;
  std::uint32_t out = 0;
  for (std::uint32_t mask : {display.redMask, display.greenMask, display.blueMask}) {
    std::uint32_t c = (d & mask) + (s & mask);
    if (c > mask) c = mask;
    out |= c;
  }
  return static_cast<std::uint16_t>(out);
}

int DrawSurfaceAdditive(Surface* surface, int x, int y, int topLeft) {
  Placement at;
  int result = 0;
  if (!Place(surface, x, y, topLeft, &at, &result)) return result;
  const Rect& source = at.source;
  const int tx = at.x, ty = at.y;
  if (!LockDrawTarget()) return -1;
  const std::uint16_t* pixels = surface->Lock();
  if (!pixels) return -1;
  for (int row = 0; row < source.Height(); ++row) {
    const std::uint16_t* from = pixels + static_cast<std::size_t>(source.top + row) * surface->Pitch() + source.left;
    std::uint16_t* to = LockedPixel(tx, ty + row);
    for (int col = 0; col < source.Width(); ++col) to[col] = AddPixels(to[col], from[col]);
  }
  surface->Unlock();
  return 0;
}

void EndAdditive() {
  if (!theDisplay || !theDisplay->lockedPointer) return;
  if (Surface* target = theDisplay->DrawTarget()) target->Unlock();
  theDisplay->lockedPointer = nullptr;
}
