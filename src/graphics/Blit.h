#pragma once
// Placing pictures on the draw target: clipping against the clip rectangle, opaque and
// keyed copies, and the software additive blend used for glows.
#include "graphics/Display.h"

// blitMode = keyed (black transparent) when on, opaque when off.
void SetBlitKeyed(int on);

// With topLeft 1, (x, y) is the surface's top-left corner; with 0 its centre. Fills the
// visible source rectangle and where it lands; 1 when anything is visible.
int ClipToRect(const Surface& surface, int x, int y, int topLeft, const Rect& clip, Rect* source, int* targetX,
               int* targetY);

// 0 when drawn or when nothing was visible; 1 when the front surface had been lost (it is
// restored now and nothing was drawn); -1 when the copy failed.
int DrawSurface(Surface* surface, int x, int y, int topLeft);
int DrawSurfaceAdditive(Surface* surface, int x, int y, int topLeft);

// Releases the lock that additive drawing keeps on the draw target.
void EndAdditive();

// The draw target's locked pixel at frame position (x, y), locking it first when needed;
// null when it cannot be locked. Additive drawing and particles plot through it.
std::uint16_t* LockedPixel(int x, int y);
bool LockDrawTarget();

// Per-channel saturating addition of two pixels in the display's layout.
std::uint16_t AddPixels(std::uint16_t target, std::uint16_t source);
