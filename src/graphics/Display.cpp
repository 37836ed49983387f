#include "graphics/Display.h"

#include <cstdio>

#include "platform/FrameUploader.h"
#include "platform/Window.h"

Display* theDisplay = nullptr;

Display::Display() { theDisplay = this; }

Display::~Display() {
  for (auto& font : fonts) font.reset();
  ReleaseDisplay();
  if (theDisplay == this) theDisplay = nullptr;
}

bool Display::FailInit(const char* text) {
  ReleaseDisplay();
  platform::MessageBox(platform::kMainWindow, text, "Game Init Failure", platform::MB_OK);
  platform::DestroyWindow(platform::kMainWindow);
  return false;
}

int Display::InitDisplay(int w, int h, int bpp, std::uint32_t flags) {
  width = w;
  height = h;
  bitsPerPixel = bpp;
  modeFlags = flags;
  const bool windowed = (flags & kModeWindowed) != 0;
  platform::OpenResult opened = platform::OpenResult::Ok;
  if (!platform::CreateMainWindow("Quarnwick", w, h, windowed, &opened)) {
    switch (opened) {
      case platform::OpenResult::NoVideo: return FailInit("DirectDrawCreate failed.");
      case platform::OpenResult::NoCooperation: return FailInit("SetCooperativeLevel failed.");
      case platform::OpenResult::NoDisplayMode: return FailInit("SetDisplayMode failed.");
      case platform::OpenResult::NoSurface:
        return FailInit(windowed ? "CreateSurface (primary, friendly) failed." : "CreateSurface (primary, exclusive) failed.");
      default: {
        // The window itself could not be made: no box, only the log.
        const std::string reason = platform::CurrentBackend() ? platform::CurrentBackend()->LastError() : "";
        std::fprintf(stderr, "Quarnwick: the window could not be created. %s\n", reason.c_str());
        platform::DestroyWindow(platform::kMainWindow);
        return 0;
      }
    }
  }
  const bool backBuffer = (flags & (kModeFlip | kModeCopy)) && !(flags & kModeNoBackFetch);
  front = std::make_unique<Surface>(w, h);
  if (backBuffer) back = std::make_unique<Surface>(w, h);
  if (front->Width() == 0 || (back && back->Width() == 0)) {
    return FailInit((flags & (kModeFlip | kModeCopy)) ? "CreateSurface (primary, exclusive) failed."
                                                      : "CreateSurface (primary, friendly) failed.");
  }
  platform::SetWindowSurface(front.get());
  ClipRect = {0, 0, w - 1, h - 1};
  lockedPointer = nullptr;
  return 1;
}

void Display::ReleaseDisplay() {
  platform::SetWindowSurface(nullptr);
  back.reset();
  front.reset();
  lockedPointer = nullptr;
}

Surface* Display::DrawTarget() const {
  if ((modeFlags & (kModeWindowed | kModeNoBackFetch)) || !back) return front.get();
  return back.get();
}

void Display::Present() {
  if (!front || (modeFlags & kModeWindowed)) return;
  if (modeFlags & kModeFlip) {
    if (back) std::swap(front, back);
    platform::SetWindowSurface(front.get());
    return;
  }
  if ((modeFlags & kModeCopy) && back) front->CopyFrom(0, 0, *back, back->Bounds(), false);
}

int Display::RestoreFront() {
  if (!front || !front->IsLost()) return 0;
  // The back buffer is attached to the front surface and comes back with it.
  front->Restore();
  if (back) back->Restore();
  return 1;
}

void Display::ResetClip() { ClipRect = {0, 0, width, height}; }

std::uint16_t Display::MatchColour(Surface* surface, std::uint32_t colour) {
  if (!surface || surface->IsLost() || surface->IsLocked() || surface->Width() == 0) return 0xFFFF;
  if (colour == kInvalidColour) return surface->At(0, 0);
  return platform::PackedTo565(colour);
}

void Display::ClearScreen(int r, int g, int b) {
  Surface* target = DrawTarget();
  if (!target) return;
  target->Fill(ClipRect, MatchColour(target, PackColour(r, g, b)));
}

void Display::SetFont(int slot, int h, const char* faceName, int weight) {
  if (slot < 0 || slot >= kFontSlots) return;
  fonts[slot] = platform::Font::Open(faceName ? faceName : "", h, weight);
}

platform::Font* Display::FontAt(int slot) const {
  if (slot < 0 || slot >= kFontSlots) return nullptr;
  return fonts[slot].get();
}

void CreateGameFonts(Display& display) {
  struct Entry {
    int height;
    const char* face;
  };
  static constexpr Entry kTable[9] = {{14, "Arial Bold"}, {16, "Arial Bold"}, {24, "Arial Bold"},
                                      {32, "Arial Bold"}, {10, "System"},     {10, "fixedsys"},
                                      {12, "Arial"},      {9, "Arial"},       {20, "Arial Bold"}};
  for (int slot = 0; slot < 9; ++slot) display.SetFont(slot, kTable[slot].height, kTable[slot].face, 400);
}
