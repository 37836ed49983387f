#include "platform/FrameUploader.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/Backend.h"
#include "platform/Surface.h"
#include "platform/Window.h"

namespace platform {
namespace {

struct UploaderState {
  const Surface* surface = nullptr;
  std::vector<std::uint16_t> shownPixels;  // the frame last put on the screen
  std::uint32_t shownChange = 0;
  bool shownOnce = false;
};

UploaderState& State() {
  static UploaderState state;
  return state;
}

// The parts of the frame that differ from what the window shows: for each band of rows
// that differs, the columns from its first to its last differing pixel. All of it when
// nothing was shown yet.
std::vector<Rect> ChangedParts(const UploaderState& s, const Surface& frame) {
  constexpr int kBandRows = 16;
  const int width = frame.Width(), height = frame.Height(), pitch = frame.Pitch();
  if (!s.shownOnce || s.shownPixels.size() != static_cast<std::size_t>(pitch) * height) {
    return {Rect{0, 0, width, height}};
  }
  std::vector<Rect> parts;
  for (int top = 0; top < height; top += kBandRows) {
    const int bottom = std::min(top + kBandRows, height);
    int left = width, right = 0;
    for (int y = top; y < bottom; ++y) {
      const std::uint16_t* now = frame.Pixels() + static_cast<std::size_t>(y) * pitch;
      const std::uint16_t* was = s.shownPixels.data() + static_cast<std::size_t>(y) * pitch;
      if (std::memcmp(now, was, sizeof *now * width) == 0) continue;
      const auto first = std::mismatch(now, now + width, was).first;
      left = std::min(left, static_cast<int>(first - now));
      int last = width;
      while (now[last - 1] == was[last - 1]) --last;
      right = std::max(right, last);
    }
    if (left < right) parts.push_back(Rect{left, top, right, bottom});
  }
  return parts;
}

// Puts the frame on the screen, or only what changed of it. A frame equal to the one on
// the screen is sent only when `always` is set.
void Show(Backend& backend, const Surface& frame, bool always) {
  UploaderState& s = State();
  const std::vector<Rect> changed = ChangedParts(s, frame);
  if (changed.empty() && !always) return;
  const std::size_t pitch = frame.Pitch();
  s.shownPixels.resize(pitch * frame.Height());
  for (const Rect& part : changed) {
    for (int y = part.top; y < part.bottom; ++y) {
      const std::uint16_t* row = frame.Pixels() + y * pitch;
      std::copy(row + part.left, row + part.right, s.shownPixels.data() + y * pitch + part.left);
    }
  }
  backend.ShowFrame(frame, changed);
  s.shownOnce = true;
}

}  // namespace

void SetWindowSurface(const Surface* surface) {
  State().surface = surface;
  State().shownOnce = false;
}

const Surface* WindowSurface() { return State().surface; }

void RefreshWindow() {
  UploaderState& s = State();
  Backend* backend = CurrentBackend();
  if (!WindowExists() || !s.surface || !backend) return;
  if (s.shownOnce && s.surface->ChangeCount() == s.shownChange) return;
  s.shownChange = s.surface->ChangeCount();
  // Screens redraw every frame; a frame equal to the one on the screen is not sent again,
  // and of one that differs only the parts that differ are, which keeps a still screen
  // free and an animated one cheap.
  Show(*backend, *s.surface, false);
}

void ShowSurfaceNow(const Surface& surface) {
  UploaderState& s = State();
  Backend* backend = CurrentBackend();
  if (!WindowExists() || !backend) return;
  Show(*backend, surface, true);
  if (&surface == s.surface) s.shownChange = surface.ChangeCount();
}

void ResetFrameUploader() { State() = UploaderState{}; }

}  // namespace platform
