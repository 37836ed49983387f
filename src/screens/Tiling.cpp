#include "screens/Tiling.h"

#include "graphics/Display.h"
#include "graphics/Picture.h"

void TilePicture(Picture& picture) {
  const int w = picture.Width(), h = picture.Height();
  if (w <= 0 || h <= 0) {
    theDisplay->ClearScreen(0, 0, 0);
    return;
  }
  for (int y = 0; y < 480; y += h)
    for (int x = 0; x < 640; x += w) picture.DrawOpaque(x, y, 1);
}
