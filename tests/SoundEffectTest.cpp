// Sound effects over the headless sound device: what loading, playing at the effects
// volume, replaying, muting, looping and freeing ask of the device, and every failure with
// its message box (or, without a sound device, silently none). What the device then plays
// is the mixer's to test.
#include <utility>

#include "audio/SoundEffect.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

using Request = platform::HeadlessAudio::Request;
using Calls = std::vector<std::tuple<Request, int, int>>;

namespace {

const std::vector<int> kTone = {1000, 2000, 3000, 4000};

class SoundEffectTest : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::InstallBackend(&backend);
    effectsVolume = 100;
    OpenSoundOutput(0);
    Write("tone.wav", MakeWaveFile(kTone));
  }
  void TearDown() override {
    CloseSoundOutput();
    platform::InstallBackend(nullptr);
    effectsVolume = 100;
  }
  void Write(const std::string& name, const Bytes& bytes) { WriteFile((folder / "dat" / name).string(), bytes); }
  platform::HeadlessAudio& Audio() { return backend.AudioOutput(); }
  // The requests made since the last look, as (request, buffer, value).
  Calls Requests() {
    Calls calls;
    for (const auto& c : Audio().Calls()) calls.emplace_back(c.request, c.buffer, c.value);
    Audio().ClearRecord();
    return calls;
  }

  TempFolder folder{"sound", TempFolder::DataRoot};
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
  EXPECT_TRUE(backend.MessageBoxes().empty());
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
  ASSERT_NE(sound->format, nullptr);
  EXPECT_EQ(sound->format->extra, extensible);
  EXPECT_EQ(Bytes(sound->data.get(), sound->data.get() + sound->size), Pcm16(kTone));
  // The device has its own copy of the samples, in the wave's whole format, silent.
  ASSERT_EQ(Audio().Buffers().size(), 1u);
  EXPECT_EQ(Audio().Buffers()[0].format, *sound->format);
  EXPECT_EQ(Audio().Buffers()[0].samples, Pcm16(kTone));
  EXPECT_EQ(Requests(), (Calls{{Request::Create, 1, 0}, {Request::SetVolume, 1, 0}}));
  EXPECT_EQ(sound->playing, 0);
  EXPECT_TRUE(backend.MessageBoxes().empty());
  FreeSound(sound);
  EXPECT_EQ(Requests(), (Calls{{Request::Release, 1, 0}}));
  EXPECT_EQ(Audio().LiveBuffers(), 0);
}

TEST_F(SoundEffectTest, PlayingSetsTheEffectsVolumeAndStartsTheSoundOver) {
  SoundEffect* sound = LoadSound(0, "dat\\tone.wav");
  Requests();
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 400);
  EXPECT_EQ(sound->playing, 1);
  PlaySound(0, sound);  // still playing: it starts over instead of layering
  Audio().Render(4, 22050);
  // At half the effects volume: 200 of 400, which is 20 dB down. Ended, it starts again.
  effectsVolume = 50;
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 200);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0},
                               {Request::Play, 1, 0},
                               {Request::SetVolume, 1, 0},
                               {Request::Rewind, 1, 0},
                               {Request::SetVolume, 1, -2000},
                               {Request::Play, 1, 0}}));
  EXPECT_EQ(Audio().LiveBuffers(), 1);

  // Muted, it asks nothing and keeps its volume.
  effectsVolume = 0;
  Audio().Render(4, 22050);
  PlaySound(0, sound);
  EXPECT_TRUE(Requests().empty());
  EXPECT_EQ(sound->volume, 200);

  // A looping sound asks the device to loop.
  effectsVolume = 100;
  sound->loop = 1;
  PlaySound(0, sound);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Play, 1, 1}}));
  Audio().Render(40, 22050);
  EXPECT_TRUE(Audio().IsPlaying(1));

  // Kept past the output, it takes the volume, asks nothing, and can still be freed.
  CloseSoundOutput();
  effectsVolume = 50;
  sound->playing = 0;
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 200);
  EXPECT_EQ(sound->playing, 0);
  FreeSound(sound);
  EXPECT_EQ(Requests(), (Calls{{Request::Release, 1, 0}}));
}

TEST_F(SoundEffectTest, EveryFailureShowsItsBox) {
  // A wave that cannot be read (the reader's tests have every kind) gives no sound; nor
  // does a buffer the device refuses. These set-up failures show the error icon.
  EXPECT_EQ(LoadSound(0, "dat\\missing.wav"), nullptr);
  EXPECT_TRUE(Requests().empty());
  const ShownBox refused{"Cannot create new buffer", "Direct Sound Error", true};
  Write("compressed.wav", MakeWaveFile(kTone, 2, Bytes{0xF4, 0x01}));  // a format it does not play
  EXPECT_EQ(LoadSound(0, "dat\\compressed.wav"), nullptr);
  Audio().FailCreate(true);
  EXPECT_EQ(LoadSound(0, "dat\\tone.wav"), nullptr);
  EXPECT_EQ(Boxes(backend), (std::vector<ShownBox>{
                                {"Bad wave file or file too big to fit in memory", "Cannot load wave", true}, refused,
                                refused}));
  EXPECT_EQ(Audio().LiveBuffers(), 0);
  Audio().FailCreate(false);

  // A failed start, then a failed rewind: plain boxes.
  SoundEffect* sound = LoadSound(0, "dat\\tone.wav");
  Audio().FailPlay(true);
  PlaySound(0, sound);
  EXPECT_EQ(sound->playing, 0);
  EXPECT_EQ(Boxes(backend).back(), (ShownBox{"Cannot start playing", "Direct Sound Error", false}));
  Audio().FailPlay(false);
  PlaySound(0, sound);
  EXPECT_EQ(sound->playing, 1);
  Audio().FailRewind(true);
  PlaySound(0, sound);
  EXPECT_EQ(Boxes(backend).back(), (ShownBox{"Cannot set current position", "Direct Sound Error", false}));
  EXPECT_EQ(Boxes(backend).size(), 5u);
  FreeSound(sound);
}

}  // namespace
