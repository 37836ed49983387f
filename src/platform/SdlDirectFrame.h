#pragma once
// Frames written straight into the window's own pixels, for windows whose renderer would
// rasterise in software (a virtual display, a machine without graphics drivers): there a
// renderer costs a whole textured frame and a whole window copy every frame, while here
// only the parts of the frame that changed are scaled (nearest pixel, aspect kept,
// centred between black bars) and sent to the window.
#include <SDL.h>

#include <cstdint>
#include <vector>

#include "platform/Surface.h"

namespace platform {

// True when the renderer draws with a software rasteriser rather than on graphics
// hardware.
bool RendersInSoftware(SDL_Renderer* renderer);

class SdlDirectFrame {
 public:
  SdlDirectFrame(int width, int height) : width(width), height(height) {}

  // Takes the window's own pixels; false when the window has none that can be written
  // here (then a renderer must draw it).
  bool Start(SDL_Window* window);
  bool Started() const { return window != nullptr; }
  void Stop() { window = nullptr; }

  // Shows the frame; only the changed parts differ from the frame shown before.
  void Show(const Surface& frame, const std::vector<Rect>& changed);
  // Shows the last frame again, all of it (the window was uncovered or resized).
  void Redraw();
  // A point of the window in the frame's coordinates (outside 0..width-1 on the bars).
  SDL_Point ToFrame(int x, int y) const;

 private:
  // The largest rectangle of the frame's shape, centred in w x h.
  SDL_Rect View(int w, int h) const;
  void Draw(const std::vector<Rect>& parts, bool whole);

  int width, height;
  SDL_Window* window = nullptr;
  std::vector<std::uint16_t> last;        // the frame last shown, width x height
  std::vector<std::uint32_t> colours;     // a 5-6-5 value as a pixel of the window
  std::uint32_t coloursFormat = SDL_PIXELFORMAT_UNKNOWN;
  // The window surface drawn last: a new one (after a resize) is drawn whole.
  const SDL_Surface* drawnOn = nullptr;
  int drawnWidth = 0, drawnHeight = 0;
};

}  // namespace platform
