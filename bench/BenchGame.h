#pragma once
// A full-screen game on the headless backend for the length of one benchmark.
#include <cstdint>

#include "graphics/Picture.h"
#include "platform/DataPath.h"
#include "platform/HeadlessBackend.h"
#include "platform/Window.h"
#include "shell/Application.h"
#include "shell/GameMode.h"

class BenchGame {
 public:
  BenchGame() {
    platform::SetDataRoot(QUARNWICK_BUILD_DIR);
    platform::InstallBackend(&backend);
    application.StartUp("", [] { return new GameMode(1, "IDLE"); });
  }
  ~BenchGame() {
    application.ShutDown();
    platform::InstallBackend(nullptr);
  }
  platform::HeadlessBackend backend;
  Application application;
};

// A picture with every pixel set, a quarter of them to the key.
inline void Fill(Picture& picture, int w, int h) {
  picture.CreateBlank(w, h);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      picture.surface->Pixels()[y * picture.surface->Pitch() + x] = (x + y) % 4 ? static_cast<std::uint16_t>(x * 97 + y) : 0;
}
