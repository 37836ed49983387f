#include "graphics/Picture.h"

#include <cstring>
#include <utility>

#include "graphics/Blit.h"
#include "platform/BitmapFile.h"
#include "platform/DataPath.h"

namespace {

std::unique_ptr<Surface> SurfaceFromFile(const char* fileName) {
  const auto image = platform::LoadBitmapFile(platform::DataPath(fileName));
  if (!image) return nullptr;
  auto surface = std::make_unique<Surface>(image->width, image->height);
  if (surface->Width() == 0) return nullptr;
  std::memcpy(surface->Pixels(), image->pixels.data(), image->pixels.size() * sizeof(std::uint16_t));
  return surface;
}

}  // namespace

Picture::Picture() { std::memset(fileName, 0, sizeof fileName); }

Picture::~Picture() = default;

void Picture::LoadPicture(const char* name) {
  std::memset(fileName, 0, sizeof fileName);
  if (name) std::strncpy(fileName, name, sizeof fileName - 1);
  surface = SurfaceFromFile(fileName);
}

void Picture::CreateBlank(int w, int h) {
  auto blank = std::make_unique<Surface>(w, h);
  if (blank->Width() == 0) return;
  surface = std::move(blank);
  const std::uint16_t black = theDisplay ? theDisplay->MatchColour(theDisplay->DrawTarget(), PackColour(0, 0, 0)) : 0;
  surface->Fill(surface->Bounds(), black);
}

int Picture::Width() const { return surface ? surface->Width() : 0; }

int Picture::Height() const { return surface ? surface->Height() : 0; }

void Picture::CaptureFrom(Surface* source, const Rect& sourceRect, const Rect& targetRect) {
  if (!surface) return;
  ReloadIfLost(fileName, surface.get());
  if (!source && theDisplay) source = theDisplay->DrawTarget();
  if (!source) return;
  surface->StretchFrom(targetRect, *source, sourceRect);
}

int Picture::IsBlackAt(int x, int y) const {
  if (!surface || x < 0 || y < 0 || x >= surface->Width() || y >= surface->Height()) return 0;
  const std::uint16_t* pixels = surface->Lock();
  if (!pixels) return 0;
  const std::uint16_t value = pixels[static_cast<std::size_t>(y) * surface->Pitch() + x];
  surface->Unlock();
  return value == 0 ? 1 : 0;
}

void Picture::Mirror() {
  if (!surface) return;
  std::uint16_t* pixels = surface->Lock();
  if (!pixels) return;
  const int w = surface->Width();
  for (int y = 0; y < surface->Height(); ++y) {
    std::uint16_t* row = pixels + static_cast<std::size_t>(y) * surface->Pitch();
    for (int i = 0; i < w / 2; ++i) std::swap(row[i], row[w - 1 - i]);
  }
  surface->Unlock();
}

int Picture::DrawOpaque(int x, int y, int topLeft) {
  SetBlitKeyed(0);
  if (surface) ReloadIfLost(fileName, surface.get());
  return DrawSurface(surface.get(), x, y, topLeft);
}

int Picture::DrawKeyed(int x, int y, int topLeft) {
  SetBlitKeyed(1);
  if (surface) ReloadIfLost(fileName, surface.get());
  return DrawSurface(surface.get(), x, y, topLeft);
}

int Picture::DrawAdditive(int x, int y, int topLeft) {
  if (surface) ReloadIfLost(fileName, surface.get());
  return DrawSurfaceAdditive(surface.get(), x, y, topLeft);
}

int Picture::RestoreSurface() {
  if (!surface) return 0;
  if (surface->IsLost()) surface->Restore();
  return 1;
}

int ReloadIfLost(const char* fileName, Surface* surface) {
  if (!surface || !surface->IsLost()) return 1;
  const auto reloaded = SurfaceFromFile(fileName);
  if (!reloaded) return 0;
  surface->Restore();
  surface->StretchFrom(surface->Bounds(), *reloaded, reloaded->Bounds());
  return 0;
}
