#include "platform/Surface.h"

#include <algorithm>
#include <unordered_set>

namespace platform {
namespace {

std::unordered_set<Surface*>& Registry() {
  static std::unordered_set<Surface*> live;
  return live;
}
int failingCreations = 0;

}  // namespace

Surface::Surface(int w, int h) : width(w), height(h), pitch(w) {
  if (failingCreations > 0 || w <= 0 || h <= 0) {
    if (failingCreations > 0) --failingCreations;
    width = height = pitch = 0;
  }
  pixels.assign(static_cast<std::size_t>(pitch) * height, 0);
  Registry().insert(this);
}

Surface::~Surface() { Registry().erase(this); }

std::uint16_t* Surface::Lock() {
  if (lost || locked || pixels.empty()) return nullptr;
  locked = true;
  ++changes;
  return pixels.data();
}

void Surface::Unlock() { locked = false; }

void Surface::MarkLost() {
  lost = true;
  locked = false;
}

void Surface::Restore() {
  if (!lost) return;
  lost = false;
  ++changes;
  // The content of a restored surface is undefined; a visible pattern makes code that
  // forgets to redraw it easy to spot.
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = (i & 8) ? 0xF81F : 0x07E0;
}

bool Surface::Inside(const Rect& r) const {
  return r.left >= 0 && r.top >= 0 && r.right <= width && r.bottom <= height &&
         r.left <= r.right && r.top <= r.bottom;
}

bool Surface::Fill(const Rect& area, std::uint16_t value) {
  if (!Usable() || !Inside(area)) return false;
  ++changes;
  for (int y = area.top; y < area.bottom; ++y) {
    std::uint16_t* row = pixels.data() + static_cast<std::size_t>(y) * pitch;
    std::fill(row + area.left, row + area.right, value);
  }
  return true;
}

bool Surface::CopyFrom(int x, int y, const Surface& source, const Rect& s, bool keyed) {
  if (!Usable() || source.lost || !source.Inside(s)) return false;
  const Rect target{x, y, x + s.Width(), y + s.Height()};
  if (!Inside(target)) return false;
  ++changes;
  // The sizes once: unoptimised builds would call for them at every pixel of a keyed copy.
  const int width = s.Width(), height = s.Height();
  const std::uint16_t* source0 = source.pixels.data();
  std::uint16_t* target0 = pixels.data();
  for (int row = 0; row < height; ++row) {
    const std::uint16_t* from = source0 + static_cast<std::size_t>(s.top + row) * source.pitch + s.left;
    std::uint16_t* to = target0 + static_cast<std::size_t>(y + row) * pitch + x;
    if (!keyed) {
      std::copy(from, from + width, to);
      continue;
    }
    for (int col = 0; col < width; ++col) {
      if (from[col] != 0) to[col] = from[col];
    }
  }
  return true;
}

bool Surface::StretchFrom(const Rect& area, const Surface& source, const Rect& s) {
  if (!Usable() || source.lost || !source.Inside(s) || !Inside(area)) return false;
  if (area.Width() == s.Width() && area.Height() == s.Height()) {
    return CopyFrom(area.left, area.top, source, s, false);
  }
  if (s.Empty()) return area.Empty();
  ++changes;
  for (int row = 0; row < area.Height(); ++row) {
    const int sy = s.top + row * s.Height() / area.Height();
    const std::uint16_t* from = source.pixels.data() + static_cast<std::size_t>(sy) * source.pitch;
    std::uint16_t* to = pixels.data() + static_cast<std::size_t>(area.top + row) * pitch + area.left;
    for (int col = 0; col < area.Width(); ++col) {
      to[col] = from[s.left + col * s.Width() / area.Width()];
    }
  }
  return true;
}

void Surface::LoseAll() {
  for (Surface* s : Registry()) s->MarkLost();
}

void Surface::FailNextCreations(int count) { failingCreations = count; }

int Surface::LiveCount() { return static_cast<int>(Registry().size()); }

}  // namespace platform
