#pragma once
// A place screen pushed above a probe standing for the world map, on a headless game with
// a sound device and a data folder of its own that holds the click and the place's fanfare.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "creatures/PlayerRecord.h"
#include "graphics/Picture.h"
#include "graphics/Text.h"
#include "platform/DataPath.h"
#include "screens/PlaceScreen.h"
#include "shell/Globals.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

class PlaceScreenFixture : public ::testing::Test {
 protected:
  static inline const std::vector<int> kClickSamples{9000, -9000, 9000, -9000};

  // The data folder, with the click and the fanfare; more files may follow before Start.
  void Prepare(const char* fanfareFile, const std::vector<int>& fanfare) {
    WriteFile((folder / "dat" / "button2.wav").string(), MakeWaveFile(kClickSamples));
    WriteFile((folder / "dat" / fanfareFile).string(), MakeWaveFile(fanfare));
  }
  // The game; each visit pushes a place made by `make` above the map.
  void Start(std::function<GameMode*()> make) {
    makePlace = std::move(make);
    game = std::make_unique<HeadlessGame>([this] { return below = new ProbeScreen("MAP", &log); }, "-F",
                                          HeadlessGame::Sound::On);
    thePlayer.NewGameReset();
  }
  void TearDown() override {
    game.reset();
    thePlayer.ReleaseParty();
  }
  // Comes in from the map, with the pointer out of the way.
  void Visit() {
    game->Push(makePlace());
    ASSERT_NE(currentScreen, below);
    place = static_cast<PlaceScreen*>(currentScreen);
    Do([&] { game->backend.MouseMove(630, 10); });
  }
  bool AtPlace() const { return currentScreen == place; }
  std::uint32_t Lit() const { return place->widgets.current->GetId(); }
  void Do(const std::function<void()>& input) {
    input();
    game->RunFor(100);
  }
  void Key(std::uint32_t key) { Do([&] { game->backend.KeyPress(key); }); }
  void Click(int x, int y) { Do([&] { game->backend.LeftClick(x, y); }); }
  void RightClick(int x, int y) { Do([&] { game->backend.RightClick(x, y); }); }
  void ClickBox(int slot) { Click(6 + 105 * slot + 50, 420); }
  // How often the sound made from these samples was started.
  int Plays(const std::vector<int>& samples) const {
    using Request = platform::HeadlessAudio::Request;
    const auto& audio = game->backend.AudioOutput();
    int plays = 0;
    for (const auto& buffer : audio.Buffers()) {
      if (buffer.samples != Pcm16(samples)) continue;
      for (const auto& call : audio.Calls())
        plays += call.buffer == buffer.number && (call.request == Request::Play || call.request == Request::Rewind);
    }
    return plays;
  }
  // Whether the frame shows, in the area, exactly the text as the game's text output draws
  // it in white on black, centred and wrapped in the box (an empty text: nothing at all).
  bool ShowsText(const std::string& text, const Rect& box, const Rect& area) {
    Picture canvas;
    canvas.CreateBlank(640, 480);
    SetTextColour(255, 255, 255);
    SetTextTransparent(1);
    const int height = DrawTextBox(2, text.c_str(), box, canvas.surface.get(), DT_CENTER | DT_WORDBREAK);
    if (!text.empty() && height <= 0) return false;
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x)
        if (game->backend.LastFrame()[y * 640 + x] != canvas.surface->At(x, y)) return false;
    return true;
  }

  TempFolder folder{"place", TempFolder::DataRoot};
  std::unique_ptr<HeadlessGame> game;
  std::vector<std::string> log;
  ProbeScreen* below = nullptr;
  PlaceScreen* place = nullptr;
  std::function<GameMode*()> makePlace;
};
