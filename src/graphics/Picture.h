#pragma once
// One picture of the game: a bitmap file loaded into an off-screen surface, black being
// transparent when drawn keyed. It remembers its file so that it can reload itself when
// the display has lost its surfaces. Blank pictures serve as canvases and snapshots.
#include <memory>

#include "graphics/Display.h"

class Picture {
 public:
  Picture();
  virtual ~Picture();
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  // A missing or unreadable file leaves the picture empty: size 0 x 0, draws nothing.
  void LoadPicture(const char* name);
  void CreateBlank(int width, int height);
  int Width() const;
  int Height() const;
  // Copies a rectangle of the source (the draw target when null) into the picture.
  void CaptureFrom(Surface* source, const Rect& sourceRect, const Rect& targetRect);
  int IsBlackAt(int x, int y) const;
  void Mirror();
  int DrawOpaque(int x, int y, int topLeft);
  int DrawKeyed(int x, int y, int topLeft);
  int DrawAdditive(int x, int y, int topLeft);
  // For blank pictures, whose owner redraws them: brings a lost surface back without its
  // content. 1 when the surface is usable.
  int RestoreSurface();

  char fileName[64];
  std::unique_ptr<Surface> surface;
};

// 1 when the surface was fine; 0 after an attempt to reload it from its file.
int ReloadIfLost(const char* fileName, Surface* surface);
