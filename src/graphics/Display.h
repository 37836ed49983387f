#pragma once
// The display: the main window, the front surface and (in full screen) the back buffer
// that frames are drawn into, and the drawing state that every drawing operation shares:
// clip rectangle, blit mode, text colours and fonts, the pixel layout and the lock that
// additive drawing holds on the draw target.
#include <cstdint>
#include <memory>

#include "platform/Font.h"
#include "platform/PackedColour.h"
#include "platform/Surface.h"

using Rect = platform::Rect;
using Surface = platform::Surface;

// Colours travel packed as r | g << 8 | b << 16.
using platform::PackColour;
inline constexpr std::uint32_t kInvalidColour = 0xFFFFFFFF;

// Bits of Display::modeFlags.
enum DisplayMode : std::uint32_t {
  kModeFlip = 1,            // back buffer; Present flips
  kModeCopy = 2,            // back buffer; Present copies back to front (full screen)
  kModeNoBackFetch = 4,     // with 1 or 2: draw on the front surface
  kModeWindowed = 8,        // no back buffer; drawing goes straight to the front
  kModeTransparentText = 16,
  kModeNoCursor = 32,
};

inline constexpr std::uint32_t kBlitKeyed = 17;   // source colour key and wait
inline constexpr std::uint32_t kBlitOpaque = 16;  // wait only
inline constexpr int kFontSlots = 10;

class Display {
 public:
  Display();
  ~Display();
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  // Opens the window and the surfaces; 1 on success. On failure the reason has been
  // shown in a message box and the window is gone.
  int InitDisplay(int width, int height, int bitsPerPixel, std::uint32_t modeFlags);
  void ReleaseDisplay();

  Surface* DrawTarget() const;
  void Present();
  // 0: the front surface is fine; 1: it was lost and has just been restored.
  int RestoreFront();
  void ResetClip();
  // The raw pixel value of a colour on a surface; kInvalidColour reads the pixel at (0, 0).
  std::uint16_t MatchColour(Surface* surface, std::uint32_t colour);
  void ClearScreen(int r, int g, int b);

  void SetFont(int slot, int height, const char* faceName, int weight);
  platform::Font* FontAt(int slot) const;

  int width = 0;
  int height = 0;
  int bitsPerPixel = 0;
  std::uint32_t modeFlags = 0;
  std::unique_ptr<Surface> front;
  std::unique_ptr<Surface> back;
  Rect ClipRect;
  std::uint32_t textColour = PackColour(255, 255, 255);
  std::uint32_t textBackColour = 0;
  std::uint32_t blitMode = kBlitKeyed;
  std::uint32_t redMask = 0xF800, greenMask = 0x07E0, blueMask = 0x001F;
  int redShift = 11, greenShift = 5, blueShift = 0;
  int redWidth = 5, greenWidth = 6, blueWidth = 5;
  // The draw target's memory at the clip rectangle's top-left corner while additive
  // drawing holds it locked; null otherwise.
  std::uint16_t* lockedPointer = nullptr;
  Rect lockedArea;

 private:
  bool FailInit(const char* text);
  std::unique_ptr<platform::Font> fonts[kFontSlots];
};

// Set by the Display's constructor, cleared by its destructor.
extern Display* theDisplay;

// The nine fonts of the game, slots 0 to 8.
void CreateGameFonts(Display& display);
