// What one frame costs: a full-screen background, sprites keyed and additive, a wrapped
// text block, and the main menu as a whole.
#include <benchmark/benchmark.h>

#include <memory>

#include "BenchGame.h"
#include "graphics/Blit.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DataPath.h"
#include "platform/HeadlessBackend.h"
#include "platform/Window.h"
#include "screens/MainMenuScreen.h"
#include "shell/Application.h"
#include "shell/Globals.h"

namespace {

void FullScreenOpaque(benchmark::State& state) {
  BenchGame game;
  Picture background;
  Fill(background, 640, 480);
  for (auto _ : state) benchmark::DoNotOptimize(background.DrawOpaque(0, 0, 1));
}
BENCHMARK(FullScreenOpaque);

void Keyed100(benchmark::State& state) {
  BenchGame game;
  Picture sprite;
  Fill(sprite, 100, 100);
  for (auto _ : state) benchmark::DoNotOptimize(sprite.DrawKeyed(320, 240, 0));
}
BENCHMARK(Keyed100);

void Additive100(benchmark::State& state) {
  BenchGame game;
  Picture glow;
  Fill(glow, 100, 100);
  for (auto _ : state) {
    benchmark::DoNotOptimize(glow.DrawAdditive(320, 240, 0));
    EndAdditive();
  }
}
BENCHMARK(Additive100);

void WrappedText400x300(benchmark::State& state) {
  BenchGame game;
  const char* text =
      "The Earth Wizard waits at the top of his tower. Beat him with a party of strong Kindrels and the "
      "next part of the island opens: a new wild area and the tower of the Storm Wizard. Heal at home "
      "between battles, and visit the temple to read about spells, status effects and catching.";
  for (auto _ : state) benchmark::DoNotOptimize(DrawTextBox(1, text, {120, 90, 520, 390}, nullptr, DT_LEFT | DT_WORDBREAK));
}
BENCHMARK(WrappedText400x300);

void MainMenuFrame(benchmark::State& state) {
  BenchGame game;
  MainMenuScreen menu(1, "MAIN_OPTION_MODE");
  std::uint32_t now = 0;
  for (auto _ : state) benchmark::DoNotOptimize(menu.Tick(now += 34));
}
BENCHMARK(MainMenuFrame);

}  // namespace

BENCHMARK_MAIN();
