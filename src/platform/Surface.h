#pragma once
// A 16-bit 5-6-5 pixel buffer with a pitch, the stand-in for an off-screen or primary
// display surface. Pixel value 0 is the transparent colour key of every keyed copy.
// Like the surfaces it replaces, a surface can be locked (copies onto it then fail) and
// lost (copies and locks fail until it is restored; its content is gone).
#include <cstdint>
#include <vector>

namespace platform {

// Left, top inclusive; right, bottom exclusive.
struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool Empty() const { return left >= right || top >= bottom; }
  bool operator==(const Rect&) const = default;
};

class Surface {
 public:
  Surface(int width, int height);
  ~Surface();
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  int Width() const { return width; }
  int Height() const { return height; }
  int Pitch() const { return pitch; }  // in pixels
  Rect Bounds() const { return {0, 0, width, height}; }

  // Direct access for code that knows the surface is not locked by someone else
  // (readers of finished frames, tests).
  std::uint16_t* Pixels() { return pixels.data(); }
  const std::uint16_t* Pixels() const { return pixels.data(); }
  std::uint16_t At(int x, int y) const { return pixels[static_cast<std::size_t>(y) * pitch + x]; }

  // Returns the first pixel of the locked buffer, or null when the surface is lost or
  // already locked.
  std::uint16_t* Lock();
  void Unlock();
  bool IsLocked() const { return locked; }

  bool IsLost() const { return lost; }
  // Grows with every change through the operations below, so that a window can tell
  // whether its frame needs to be shown again.
  std::uint32_t ChangeCount() const { return changes; }
  void Touch() { ++changes; }
  void MarkLost();  // the content is gone, as after a display mode switch
  void Restore();   // usable again, content undefined (filled with a pattern here)

  // Copies fail (return false, draw nothing) when either surface is lost, the target is
  // locked, or a rectangle lies outside its surface.
  bool Fill(const Rect& area, std::uint16_t value);
  bool CopyFrom(int x, int y, const Surface& source, const Rect& sourceArea, bool keyed);
  bool StretchFrom(const Rect& area, const Surface& source, const Rect& sourceArea);

  // Fault injection: every live surface is lost at once.
  static void LoseAll();
  // Fault injection: the next n surfaces fail to be created (their size becomes 0 x 0).
  static void FailNextCreations(int count);
  static int LiveCount();

 private:
  bool Usable() const { return !lost && !locked; }
  bool Inside(const Rect& r) const;

  int width;
  int height;
  int pitch;
  std::vector<std::uint16_t> pixels;
  bool locked = false;
  bool lost = false;
  std::uint32_t changes = 0;
};

// Colour helpers for the 5-6-5 layout.
inline constexpr std::uint16_t Rgb565(int r, int g, int b) {
  return static_cast<std::uint16_t>(((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3));
}
inline constexpr int Red8(std::uint16_t p) { return ((p >> 11) & 31) * 255 / 31; }
inline constexpr int Green8(std::uint16_t p) { return ((p >> 5) & 63) * 255 / 63; }
inline constexpr int Blue8(std::uint16_t p) { return (p & 31) * 255 / 31; }

}  // namespace platform
