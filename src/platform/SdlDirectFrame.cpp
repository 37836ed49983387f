#include "platform/SdlDirectFrame.h"

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

constexpr unsigned kGlRenderer = 0x1F01;  // the GL_RENDERER string

// n * a / b rounded up, for non-negative numbers.
int CeilScaled(int n, int a, int b) { return static_cast<int>((static_cast<long long>(n) * a + b - 1) / b); }

// Floor division, also for negative numbers (points on the left and top bars).
int FloorDiv(long long n, long long d) { return static_cast<int>(n >= 0 ? n / d : -((-n + d - 1) / d)); }

}  // namespace

bool RendersInSoftware(SDL_Renderer* renderer) {
  SDL_RendererInfo info;
  if (SDL_GetRendererInfo(renderer, &info) != 0) return false;
  if (!(info.flags & SDL_RENDERER_ACCELERATED)) return true;
  // The OpenGL renderers name their rasteriser; Mesa's software ones are these.
  if (std::strncmp(info.name, "opengl", 6) != 0) return false;
  using GetString = const unsigned char* (*)(unsigned);
  const auto getString = reinterpret_cast<GetString>(SDL_GL_GetProcAddress("glGetString"));
  const auto* name = getString ? reinterpret_cast<const char*>(getString(kGlRenderer)) : nullptr;
  if (!name) return false;
  for (const char* software : {"llvmpipe", "softpipe", "Software Rasterizer", "swrast"}) {
    if (std::strstr(name, software)) return true;
  }
  return false;
}

bool SdlDirectFrame::Start(SDL_Window* target) {
  // The window's pixels themselves, not a texture of yet another renderer.
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_Surface* surface = SDL_GetWindowSurface(target);
  if (!surface || surface->format->BytesPerPixel != 4) return false;
  window = target;
  last.assign(static_cast<std::size_t>(width) * height, 0);
  Redraw();
  return true;
}

SDL_Rect SdlDirectFrame::View(int w, int h) const {
  int vw = w, vh = h;
  if (static_cast<long long>(w) * height > static_cast<long long>(h) * width) {
    vw = static_cast<int>(static_cast<long long>(h) * width / height);
  } else {
    vh = static_cast<int>(static_cast<long long>(w) * height / width);
  }
  return {(w - vw) / 2, (h - vh) / 2, std::max(vw, 1), std::max(vh, 1)};
}

SDL_Point SdlDirectFrame::ToFrame(int x, int y) const {
  int w = 0, h = 0;
  if (window) SDL_GetWindowSize(window, &w, &h);
  const SDL_Rect view = View(w, h);
  return {FloorDiv(static_cast<long long>(x - view.x) * width, view.w),
          FloorDiv(static_cast<long long>(y - view.y) * height, view.h)};
}

void SdlDirectFrame::Show(const Surface& frame, const std::vector<Rect>& changed) {
  if (!window || frame.Width() != width || frame.Height() != height) return;
  for (const Rect& part : changed) {
    for (int y = part.top; y < part.bottom; ++y) {
      const std::uint16_t* from = frame.Pixels() + static_cast<std::size_t>(y) * frame.Pitch();
      std::copy(from + part.left, from + part.right, last.data() + static_cast<std::size_t>(y) * width + part.left);
    }
  }
  Draw(changed, false);
}

void SdlDirectFrame::Redraw() {
  if (window) Draw({Rect{0, 0, width, height}}, true);
}

void SdlDirectFrame::Draw(const std::vector<Rect>& parts, bool whole) {
  SDL_Surface* surface = SDL_GetWindowSurface(window);
  if (!surface || surface->format->BytesPerPixel != 4) return;
  if (surface->format->format != coloursFormat) {
    coloursFormat = surface->format->format;
    colours.resize(65536);
    for (std::uint32_t v = 0; v < 65536; ++v) {
      const std::uint8_t r = static_cast<std::uint8_t>((v >> 11) << 3 | (v >> 13));
      const std::uint8_t g = static_cast<std::uint8_t>(((v >> 5) & 63) << 2 | ((v >> 9) & 3));
      const std::uint8_t b = static_cast<std::uint8_t>((v & 31) << 3 | ((v >> 2) & 7));
      colours[v] = SDL_MapRGB(surface->format, r, g, b);
    }
  }
  if (surface != drawnOn || surface->w != drawnWidth || surface->h != drawnHeight) {
    drawnOn = surface;
    drawnWidth = surface->w;
    drawnHeight = surface->h;
    if (!whole) {
      Draw({Rect{0, 0, width, height}}, true);
      return;
    }
  }
  if (SDL_MUSTLOCK(surface) && SDL_LockSurface(surface) != 0) return;
  if (whole) SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
  const SDL_Rect view = View(surface->w, surface->h);
  std::vector<SDL_Rect> sent;
  for (const Rect& part : parts) {
    // The window's pixels whose nearest frame pixel lies in the part.
    const int left = view.x + CeilScaled(part.left, view.w, width);
    const int right = view.x + CeilScaled(part.right, view.w, width);
    const int top = view.y + CeilScaled(part.top, view.h, height);
    const int bottom = view.y + CeilScaled(part.bottom, view.h, height);
    if (left >= right || top >= bottom) continue;
    for (int y = top; y < bottom; ++y) {
      const std::uint16_t* from = last.data() + static_cast<std::size_t>((y - view.y) * height / view.h) * width;
      auto* to = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(surface->pixels) +
                                                  static_cast<std::size_t>(y) * surface->pitch);
      for (int x = left; x < right; ++x) to[x] = colours[from[(x - view.x) * width / view.w]];
    }
    sent.push_back({left, top, right - left, bottom - top});
  }
  if (SDL_MUSTLOCK(surface)) SDL_UnlockSurface(surface);
  if (whole) SDL_UpdateWindowSurface(window);
  else if (!sent.empty()) SDL_UpdateWindowSurfaceRects(window, sent.data(), static_cast<int>(sent.size()));
}

}  // namespace platform
