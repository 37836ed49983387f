// Sound effects over the headless sound device: loading, playing at the effects volume,
// a replay that starts the sound over, looping, muting, freeing, and every failure with
// its message box (or, without a sound device, silently none).
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "audio/SoundEffect.h"
#include "platform/DataPath.h"
#include "platform/HeadlessBackend.h"
#include "platform/Window.h"
#include "shell/Globals.h"
#include "support/WaveBytes.h"

using platform::HeadlessAudio;
using Request = platform::HeadlessAudio::Request;
using Calls = std::vector<std::tuple<Request, int, int>>;
using Box = std::pair<std::string, std::string>;

namespace {

const std::vector<int> kTone = {1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000};
const std::vector<int> kLow = {-300, -300, -300, -300};

class SoundEffectTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() / ("quarnwick-sound-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "dat");
    platform::SetDataRoot(folder.string());
    platform::InstallBackend(&backend);
    effectsVolume = 100;
    OpenSoundOutput(0);
    Write("tone.wav", MakeWaveFile(kTone));
    Write("low.wav", MakeWaveFile(kLow));
  }
  void TearDown() override {
    CloseSoundOutput();
    platform::InstallBackend(nullptr);
    platform::SetDataRoot("");
    effectsVolume = 100;
    std::filesystem::remove_all(folder);
  }

  void Write(const std::string& name, const Bytes& bytes) {
    std::ofstream((folder / "dat" / name).string(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }
  HeadlessAudio& Audio() { return backend.AudioOutput(); }
  // The requests made since the last look, as (request, buffer, value).
  Calls Requests() {
    Calls calls;
    for (const auto& c : Audio().Calls()) calls.emplace_back(c.request, c.buffer, c.value);
    Audio().ClearRecord();
    return calls;
  }
  // The left channel of the next frames of the device's output, at the sounds' own rate.
  std::vector<int> Hear(std::size_t frames) {
    const auto out = Audio().Render(frames, 22050, 2);
    std::vector<int> left;
    for (std::size_t i = 0; i < frames; ++i) left.push_back(out[2 * i]);
    return left;
  }
  std::vector<Box> Boxes() {
    std::vector<Box> boxes;
    for (const auto& b : backend.MessageBoxes()) boxes.emplace_back(b.text, b.caption);
    return boxes;
  }

  std::filesystem::path folder;
  platform::HeadlessBackend backend;
};

TEST_F(SoundEffectTest, TheOutputIsTheBackendsDeviceAndWithoutOneTheGameIsSilent) {
  EXPECT_EQ(soundOutput, backend.Audio());
  EXPECT_TRUE(Audio().IsOpen());
  EXPECT_EQ(LoadSound(0, nullptr), nullptr);
  CloseSoundOutput();
  EXPECT_EQ(soundOutput, nullptr);
  EXPECT_FALSE(Audio().IsOpen());

  // Without a device, or with one that does not open, nothing loads and nobody is told.
  backend.SetAudioPresent(false);
  OpenSoundOutput(0);
  EXPECT_EQ(soundOutput, nullptr);
  EXPECT_EQ(LoadSound(0, "dat\\tone.wav"), nullptr);
  EXPECT_EQ(LoadSound(0, "dat\\missing.wav"), nullptr);
  backend.SetAudioPresent(true);
  Audio().FailOpen(true);
  OpenSoundOutput(0);
  EXPECT_EQ(soundOutput, nullptr);
  EXPECT_EQ(LoadSound(0, "dat\\tone.wav"), nullptr);
  PlaySound(0, nullptr);
  FreeSound(nullptr);
  EXPECT_TRUE(Boxes().empty());
  EXPECT_TRUE(Requests().empty());
}

TEST_F(SoundEffectTest, ASoundHoldsItsWaveAndABufferAtFullVolume) {
  // The extensible record of 16-bit PCM: 22 extra bytes, handed on unchanged.
  const Bytes extensible = {16, 0, 4, 0, 0, 0, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x00,
                            0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};
  Write("extensible.wav", MakeWaveFile(kTone, 0xFFFE, extensible));
  SoundEffect* sound = LoadSound(0, "dat\\extensible.wav");
  ASSERT_NE(sound, nullptr);
  EXPECT_STREQ(sound->fileName, "dat\\extensible.wav");
  ASSERT_EQ(sound->size, 16u);
  ASSERT_NE(sound->format, nullptr);
  EXPECT_EQ(sound->format->extra, extensible);
  EXPECT_EQ(sound->playing, 0);

  // The device has its own copy of the samples, in the wave's whole format, and is silent.
  ASSERT_EQ(Audio().Buffers().size(), 1u);
  EXPECT_EQ(Audio().Buffers()[0].format, *sound->format);
  EXPECT_EQ(Audio().Buffers()[0].samples, Bytes(sound->data.get(), sound->data.get() + sound->size));
  EXPECT_EQ(Requests(), (Calls{{Request::Create, 1, 0}, {Request::SetVolume, 1, 0}}));
  EXPECT_FALSE(Audio().IsPlaying(1));
  EXPECT_EQ(Hear(2), (std::vector<int>{0, 0}));
  EXPECT_TRUE(Boxes().empty());
  PlaySound(0, sound);
  EXPECT_EQ(Hear(2), (std::vector<int>{1000, 2000}));
  FreeSound(sound);
}

TEST_F(SoundEffectTest, PlayingSetsTheEffectsVolumeAndStartsTheBuffer) {
  SoundEffect* sound = LoadSound(0, "dat\\tone.wav");
  Requests();
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 400);
  EXPECT_EQ(sound->playing, 1);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Play, 1, 0}}));
  EXPECT_EQ(Hear(8), kTone);
  EXPECT_FALSE(Audio().IsPlaying(1));

  // At half the effects volume: 200 of 400, which is 20 dB down, a tenth of the loudness.
  effectsVolume = 50;
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 200);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, -2000}, {Request::Play, 1, 0}}));
  const auto quiet = Hear(2);
  EXPECT_NEAR(quiet[0], 100, 1);
  EXPECT_NEAR(quiet[1], 200, 1);
  Hear(6);

  // Muted, it plays nothing and sets no volume.
  effectsVolume = 0;
  sound->playing = 0;
  PlaySound(0, sound);
  EXPECT_TRUE(Requests().empty());
  EXPECT_EQ(sound->volume, 200);
  EXPECT_EQ(sound->playing, 0);
  EXPECT_EQ(Hear(2), (std::vector<int>{0, 0}));

  // A sound kept past the output still takes the volume, plays nothing, and can be freed.
  effectsVolume = 100;
  CloseSoundOutput();
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 400);
  EXPECT_EQ(sound->playing, 0);
  FreeSound(sound);
  EXPECT_EQ(Requests(), (Calls{{Request::Release, 1, 0}}));
}

TEST_F(SoundEffectTest, PlayingAgainStartsTheSoundOverInsteadOfLayeringIt) {
  SoundEffect* sound = LoadSound(0, "dat\\tone.wav");
  PlaySound(0, sound);
  EXPECT_EQ(Hear(3), (std::vector<int>{1000, 2000, 3000}));
  Requests();
  PlaySound(0, sound);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Rewind, 1, 0}}));
  EXPECT_EQ(Audio().LiveBuffers(), 1);
  // One voice from the start, not two summed.
  EXPECT_EQ(Hear(8), kTone);
  EXPECT_EQ(Hear(1), (std::vector<int>{0}));

  // Once it has ended, playing starts the buffer again; different sounds play together.
  SoundEffect* low = LoadSound(0, "dat\\low.wav");
  Requests();
  PlaySound(0, sound);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Play, 1, 0}}));
  PlaySound(0, low);
  EXPECT_EQ(Hear(6), (std::vector<int>{700, 1700, 2700, 3700, 5000, 6000}));
  FreeSound(sound);
  FreeSound(low);
}

TEST_F(SoundEffectTest, ALoopingSoundPlaysOnUntilFreed) {
  SoundEffect* sound = LoadSound(0, "dat\\low.wav");
  sound->loop = 1;
  Requests();
  PlaySound(0, sound);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Play, 1, 1}}));
  EXPECT_EQ(Hear(10), std::vector<int>(10, -300));
  EXPECT_TRUE(Audio().IsPlaying(1));
  FreeSound(sound);
  EXPECT_EQ(Requests(), (Calls{{Request::Release, 1, 0}}));
  EXPECT_EQ(Audio().LiveBuffers(), 0);
  EXPECT_EQ(Hear(2), (std::vector<int>{0, 0}));
}

TEST_F(SoundEffectTest, EveryFailureShowsItsBox) {
  // A wave that cannot be read gives no sound.
  Bytes broken = MakeWaveFile(kTone);
  broken.resize(broken.size() - 3);
  Write("broken.wav", broken);
  const Box unreadable{"Bad wave file or file too big to fit in memory", "Cannot load wave"};
  EXPECT_EQ(LoadSound(0, "dat\\missing.wav"), nullptr);
  EXPECT_EQ(LoadSound(0, "dat\\broken.wav"), nullptr);
  EXPECT_EQ(Boxes(), (std::vector<Box>{unreadable, unreadable}));
  EXPECT_TRUE(Requests().empty());

  // A buffer the device refuses: a format it does not play, or no buffer at all.
  const Box refused{"Cannot create new buffer", "Direct Sound Error"};
  Write("compressed.wav", MakeWaveFile(kTone, 2, Bytes{0xF4, 0x01}));
  EXPECT_EQ(LoadSound(0, "dat\\compressed.wav"), nullptr);
  Audio().FailCreate(true);
  EXPECT_EQ(LoadSound(0, "dat\\tone.wav"), nullptr);
  EXPECT_EQ(Boxes(), (std::vector<Box>{unreadable, unreadable, refused, refused}));
  EXPECT_EQ(Audio().LiveBuffers(), 0);

  // A failed start, then a failed rewind.
  Audio().FailCreate(false);
  SoundEffect* sound = LoadSound(0, "dat\\tone.wav");
  Audio().FailPlay(true);
  PlaySound(0, sound);
  EXPECT_EQ(sound->playing, 0);
  EXPECT_EQ(Boxes().back(), (Box{"Cannot start playing", "Direct Sound Error"}));
  EXPECT_EQ(Hear(1), (std::vector<int>{0}));
  Audio().FailPlay(false);
  PlaySound(0, sound);
  EXPECT_EQ(sound->playing, 1);
  Audio().FailRewind(true);
  PlaySound(0, sound);
  EXPECT_EQ(Boxes().back(), (Box{"Cannot set current position", "Direct Sound Error"}));
  EXPECT_EQ(Boxes().size(), 6u);
  FreeSound(sound);
}

}  // namespace
