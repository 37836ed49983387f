#pragma once
// The game's own mouse pointer, drawn on top of every frame. It keeps the pixels it
// covers so that it can take itself off the frame again when it moves. It hides the
// system cursor when it is made and on every move of the mouse.
#include "graphics/Picture.h"

class MousePointer {
 public:
  MousePointer();
  virtual ~MousePointer();

  // 1 draws the pointer on the freshly drawn frame; 0 takes it off.
  void Show(int on);
  // x of -1 keeps the position.
  void MoveTo(int nx, int ny);

  int x = 0;
  int y = 0;
  Picture pictures[2];  // the pointer image, and the background saved under it
  int fresh = 1;        // the frame under the pointer was redrawn: nothing to put back
  int visible = 1;
  Rect bounds{0, 0, 640, 480};

 private:
  void PutBackground();
};
