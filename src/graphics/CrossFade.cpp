#include "graphics/CrossFade.h"

#include <memory>

#include "platform/FrameUploader.h"

// Level L and level 31 - L add up to exactly 1.0.
const float FadeLevels[kFadeLevelCount] = {0.0f,  0.03f, 0.06f, 0.09f, 0.13f, 0.17f, 0.21f, 0.24f,
                                           0.27f, 0.31f, 0.34f, 0.37f, 0.41f, 0.44f, 0.47f, 0.49f,
                                           0.51f, 0.53f, 0.56f, 0.59f, 0.63f, 0.66f, 0.69f, 0.73f,
                                           0.76f, 0.79f, 0.83f, 0.87f, 0.91f, 0.94f, 0.97f, 1.0f};

std::uint16_t FadeTable[kFadeLevelCount][65536];

namespace {

struct Layout {
  std::uint32_t greenMask = 0x07E0, blueMask = 0x001F;
  int redShift = 11, greenShift = 5;
};
Layout layout;

int Scale(std::uint32_t channel, float factor) { return static_cast<int>(static_cast<float>(channel) * factor); }

}  // namespace

void PrepareFade() {
  if (!theDisplay) return;
  layout.greenMask = theDisplay->greenMask;
  layout.blueMask = theDisplay->blueMask;
  layout.redShift = theDisplay->redShift;
  layout.greenShift = theDisplay->greenShift;
}

void BuildFadeTable() {
  for (int level = 0; level < kFadeLevelCount; ++level) {
    const float f = FadeLevels[level];
    for (std::uint32_t c = 0; c < 65536; ++c) {
      const std::uint32_t red = c >> layout.redShift;  // the top field: no mask needed
      const std::uint32_t green = (c & layout.greenMask) >> layout.greenShift;
      const std::uint32_t blue = c & layout.blueMask;  // the bottom field
      FadeTable[level][c] = static_cast<std::uint16_t>((Scale(red, f) << layout.redShift) |
                                                       (Scale(green, f) << layout.greenShift) | Scale(blue, f));
    }
  }
}

void CrossFade(Surface* from, Surface* to) {
  if (!theDisplay || !theDisplay->front || !from || !to) return;
  Surface* front = theDisplay->front.get();
  auto fromCopy = std::make_unique<Surface>(640, 480);
  auto toCopy = std::make_unique<Surface>(640, 480);
  auto result = std::make_unique<Surface>(640, 480);
  if (fromCopy->Width() == 0 || toCopy->Width() == 0 || result->Width() == 0) return;
  const Rect whole{0, 0, 640, 480};
  fromCopy->CopyFrom(0, 0, *from, whole, false);
  toCopy->CopyFrom(0, 0, *to, whole, false);

  const std::uint16_t* t = toCopy->Lock();
  const std::uint16_t* f = fromCopy->Lock();
  std::uint16_t* r = result->Lock();
  std::uint16_t* screen = front->Lock();
  if (t && f && r && screen) {
    for (int k = 0; k < 8; ++k) {
      const std::uint16_t* toLevel = FadeTable[4 * k];
      const std::uint16_t* fromLevel = FadeTable[31 - 4 * k];
      for (int y = 0; y < 480; ++y) {
        const std::uint16_t* tr = t + static_cast<std::ptrdiff_t>(y) * toCopy->Pitch();
        const std::uint16_t* fr = f + static_cast<std::ptrdiff_t>(y) * fromCopy->Pitch();
        std::uint16_t* rr = r + static_cast<std::ptrdiff_t>(y) * result->Pitch();
        std::uint16_t* sr = screen + static_cast<std::ptrdiff_t>(y) * front->Pitch();
        for (int x = 0; x < 640; ++x) rr[x] = static_cast<std::uint16_t>(toLevel[tr[x]] + fromLevel[fr[x]]);
        std::copy(rr, rr + 640, sr);
      }
      // The step is seen at once: the front surface is the screen.
      front->Touch();
      platform::ShowSurfaceNow(*front);
    }
  }
  if (screen) front->Unlock();
  if (r) result->Unlock();
  if (f) fromCopy->Unlock();
  if (t) toCopy->Unlock();
}
