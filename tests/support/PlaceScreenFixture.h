#pragma once
// A place screen pushed above a probe standing for the world map, on a headless game with
// a sound device and a data folder of its own that holds the click and the place's fanfare.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "creatures/PlayerRecord.h"
#include "platform/DataPath.h"
#include "shell/Globals.h"
#include "support/BitmapBytes.h"
#include "support/HeadlessGame.h"
#include "support/WaveBytes.h"

class PlaceScreenFixture : public ::testing::Test {
 protected:
  static inline const std::vector<int> kClickSamples{9000, -9000, 9000, -9000};

  // The data folder, with the click and the fanfare; more files may follow before Start.
  void Prepare(const std::string& tag, const char* fanfareFile, const std::vector<int>& fanfare) {
    folder = std::filesystem::temp_directory_path() / ("quarnwick-" + tag + "-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "dat");
    WriteFile((folder / "dat" / "button2.wav").string(), MakeWaveFile(kClickSamples));
    WriteFile((folder / "dat" / fanfareFile).string(), MakeWaveFile(fanfare));
    platform::SetDataRoot(folder.string());
  }
  // The game; the key pushes the place made by `make` above the map.
  void Start(std::uint32_t key, std::function<GameMode*()> make) {
    game = std::make_unique<HeadlessGame>([this] { return below = new ProbeScreen("MAP", &log); }, "-F",
                                          HeadlessGame::Sound::On);
    below->onMessage = [this, key, make](std::uint32_t message, WParam wParam, LParam) {
      if (message == platform::WM_KEYDOWN && wParam == key) {
        pendingScreen = make();
        below->state = kStatePush;
      }
    };
    thePlayer.NewGameReset();
  }
  void TearDown() override {
    game.reset();
    thePlayer.ReleaseParty();
    platform::SetDataRoot("");
    std::filesystem::remove_all(folder);
  }
  void Do(const std::function<void()>& input) {
    input();
    game->RunFor(100);
  }
  // How often the sound made from these samples was started.
  int Plays(const std::vector<int>& samples) const {
    using Request = platform::HeadlessAudio::Request;
    const auto& audio = game->backend.AudioOutput();
    Bytes pcm;
    for (int s : samples) Put16(pcm, static_cast<std::uint32_t>(s));
    int plays = 0;
    for (const auto& buffer : audio.Buffers()) {
      if (buffer.samples != pcm) continue;
      for (const auto& call : audio.Calls())
        plays += call.buffer == buffer.number && (call.request == Request::Play || call.request == Request::Rewind);
    }
    return plays;
  }

  std::filesystem::path folder;
  std::unique_ptr<HeadlessGame> game;
  std::vector<std::string> log;
  ProbeScreen* below = nullptr;
};
