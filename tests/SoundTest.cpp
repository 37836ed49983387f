// Sound, from the wave files the build bakes to what the device plays: every sound the
// game names is baked; the mixer behind the sound devices converts sample sizes,
// channel counts and rates to the output, sets volumes in hundredths of a decibel, sums
// with saturation, ends, loops and rewinds; and sound effects ask the headless device for
// loading, playing at the effects volume, replaying, muting, looping and freeing, with
// every failure's message box (or, without a sound device, silently none).
#include <filesystem>
#include <set>
#include <utility>

#include "audio/SoundEffect.h"
#include "creatures/SpellTable.h"
#include "platform/AudioMixer.h"
#include "support/HeadlessGame.h"
#include "support/TestData.h"
#include "support/WaveBytes.h"

namespace {

namespace fs = std::filesystem;
using platform::AudioMixer;
using platform::WaveFormat;
using Request = platform::HeadlessAudio::Request;
using Calls = std::vector<std::tuple<Request, int, int>>;

// The baked files' format, length and level are the sound check's (check-sounds.sh).
TEST(BakedSoundsTest, EverySoundTheGameNamesIsBaked) {
  // The menus, the map, the places and battles, and every file the spell tables name.
  std::set<std::string> needed = {"button2.wav",  "pcmonst1.wav", "pcmonst2.wav", "fanfare4.wav",
                                  "fanfare5.wav", "fanfare7.wav", "fanfare8.wav", "common2.wav"};
  for (const auto* table : {spellCastSounds, spellFlightSounds, spellImpactSounds}) {
    for (int kind = 0; kind < kSpellCount; ++kind) {
      if (!HasSpellSound(table[kind])) continue;
      std::string file = table[kind];
      file = file.substr(4);  // past "dat\"
      for (char& c : file) c = c == '\\' ? '/' : c;
      needed.insert(file);
    }
  }
  const fs::path dat = fs::path(QUARNWICK_BUILD_DIR) / "dat";
  for (const std::string& file : needed) EXPECT_TRUE(fs::is_regular_file(dat / file)) << file << " is not baked";
}

// Plain PCM of this layout.
WaveFormat Pcm(int channels, int bits, std::uint32_t rate) {
  return Format(1, static_cast<std::uint16_t>(channels), rate, static_cast<std::uint16_t>(bits));
}

// Frames of the output, each as its channel values.
std::vector<std::vector<int>> Render(AudioMixer& mixer, std::size_t frames, int rate, int channels) {
  std::vector<std::int16_t> out(frames * channels, 0x5555);
  mixer.Mix(out.data(), frames, rate, channels);
  std::vector<std::vector<int>> result(frames);
  for (std::size_t n = 0; n < frames; ++n) result[n].assign(out.begin() + n * channels, out.begin() + (n + 1) * channels);
  return result;
}

std::vector<int> Left(const std::vector<std::vector<int>>& frames) {
  std::vector<int> left;
  for (const auto& f : frames) left.push_back(f[0]);
  return left;
}

TEST(SoundMixer, SampleSizesChannelsAndRatesAreConvertedToTheOutput) {
  const struct {
    const char* what;
    WaveFormat format;
    Bytes samples;
    bool loop;
    int rate, channels;                   // of the output
    std::vector<std::vector<int>> frames;  // what the output gets
  } cases[] = {
      {"8 bits are unsigned around the middle", Pcm(1, 8, 8000), {128, 255, 0, 64, 192}, false, 8000, 1,
       {{0}, {127 * 256}, {-32768}, {-64 * 256}, {64 * 256}}},
      {"stereo to stereo", Pcm(2, 16, 8000), Pcm16({1000, -2000, 3000, 0}), false, 8000, 2, {{1000, -2000}, {3000, 0}}},
      {"stereo to mono", Pcm(2, 16, 8000), Pcm16({1000, -2000, 3000, 0}), false, 8000, 1, {{-500}, {1500}}},
      {"channels past the second stay silent", Pcm(2, 16, 8000), Pcm16({1000, -2000}), false, 8000, 4,
       {{1000, -2000, 0, 0}}},
      {"mono to stereo", Pcm(1, 16, 8000), Pcm16({-1234, 77}), false, 8000, 2, {{-1234, -1234}, {77, 77}}},
      // Twice the rate: a point between each pair; the last frame holds, then the voice ends.
      {"twice the rate", Pcm(1, 16, 22050), Pcm16({0, 1000, 2000, 4000}), false, 44100, 1,
       {{0}, {500}, {1000}, {1500}, {2000}, {3000}, {4000}, {4000}, {0}, {0}}},
      {"half the rate", Pcm(1, 16, 44100), Pcm16({10, 20, 30, 40, 50, 60}), false, 22050, 1, {{10}, {30}, {50}, {0}}},
      {"a third of the way between frames", Pcm(1, 16, 1000), Pcm16({0, 3000, 0}), true, 3000, 1,
       {{0}, {1000}, {2000}, {3000}}},
      {"a loop wraps around", Pcm(1, 16, 8000), Pcm16({7, 8, 9}), true, 8000, 1,
       {{7}, {8}, {9}, {7}, {8}, {9}, {7}, {8}}},
      {"at double the rate a loop's last frame leads back into the first", Pcm(1, 16, 8000), Pcm16({7, 8, 9}), true,
       16000, 1, {{7}, {8}, {8}, {9}, {9}, {8}, {7}}},
  };
  for (const auto& c : cases) {
    AudioMixer mixer;
    const auto voice = mixer.Add(c.format, c.samples);
    ASSERT_NE(voice, 0u) << c.what;
    ASSERT_TRUE(mixer.Play(voice, c.loop));
    EXPECT_EQ(Render(mixer, c.frames.size(), c.rate, c.channels), c.frames) << c.what;
    EXPECT_EQ(mixer.IsPlaying(voice), c.loop) << c.what;
  }
}

TEST(SoundMixer, VoicesAddUpAndSaturateAtTheirVolumesInHundredthsOfADecibel) {
  AudioMixer sum;
  for (const auto& samples : {std::vector<int>{10000, 30000, -30000, 5}, {5000, 30000, -30000, -5}})
    sum.Play(sum.Add(Pcm(1, 16, 8000), Pcm16(samples)), false);
  EXPECT_EQ(Left(Render(sum, 4, 8000, 2)), (std::vector<int>{15000, 32767, -32768, 0}));

  EXPECT_EQ(std::tuple(platform::GainForVolume(0), platform::GainForVolume(-10000)), std::tuple(65536, 0));
  // -20 dB is a tenth of the amplitude, -6 dB about half.
  EXPECT_NEAR(platform::GainForVolume(-2000), 6554, 1);
  EXPECT_NEAR(platform::GainForVolume(-600), 32845, 2);

  AudioMixer mixer;
  const auto voice = mixer.Add(Pcm(1, 16, 8000), Pcm16({20000, -20000}));
  EXPECT_TRUE(!mixer.SetVolume(voice, 1) && !mixer.SetVolume(voice, -10001)) << "beyond full or silent";
  ASSERT_TRUE(mixer.SetVolume(voice, -2000));
  mixer.Play(voice, true);
  const auto tenth = Left(Render(mixer, 2, 8000, 2));
  EXPECT_NEAR(tenth[0], 2000, 1);
  EXPECT_NEAR(tenth[1], -2000, 1);
  ASSERT_TRUE(mixer.SetVolume(voice, -10000));
  EXPECT_EQ(Left(Render(mixer, 2, 8000, 2)), (std::vector<int>{0, 0}));
  ASSERT_TRUE(mixer.SetVolume(voice, 0));
  EXPECT_EQ(Left(Render(mixer, 2, 8000, 2)), (std::vector<int>{20000, -20000}));
}

// The player's loudness: looping voices follow the music's, the others the effects', on
// top of their own volumes.
TEST(SoundMixer, ThePlayersLevelsScaleTheLoopsAndTheEffectsApart) {
  AudioMixer mixer;
  const auto effect = mixer.Add(Pcm(1, 16, 8000), Pcm16({8000, 8000, 8000, 8000}));
  const auto loop = mixer.Add(Pcm(1, 16, 8000), Pcm16({400, 400}));
  ASSERT_TRUE(mixer.SetVolume(effect, -600));  // about half
  const struct {
    int effects, music, heard;
  } cases[] = {{100, 100, 4010 + 400}, {100, 0, 4010}, {0, 100, 400}, {50, 25, 2005 + 100}};
  for (const auto& c : cases) {
    mixer.SetLevels(c.effects, c.music);
    mixer.Rewind(effect);
    mixer.Play(effect, false);
    mixer.Play(loop, true);
    EXPECT_NEAR(Left(Render(mixer, 1, 8000, 2))[0], c.heard, 2) << c.effects << " " << c.music;
  }
}

TEST(SoundMixer, AVoicePlaysOnceStopsAtItsStartAndRewindsWithoutStopping) {
  AudioMixer mixer;
  const auto voice = mixer.Add(Pcm(1, 16, 8000), Pcm16({1, 2, 3}));
  EXPECT_FALSE(mixer.IsPlaying(voice));
  EXPECT_EQ(Left(Render(mixer, 2, 8000, 2)), (std::vector<int>{0, 0}));  // made stopped
  mixer.Play(voice, false);
  EXPECT_EQ(Left(Render(mixer, 2, 8000, 2)), (std::vector<int>{1, 2}));
  ASSERT_TRUE(mixer.Rewind(voice));
  EXPECT_TRUE(mixer.IsPlaying(voice));
  EXPECT_EQ(Left(Render(mixer, 4, 8000, 2)), (std::vector<int>{1, 2, 3, 0}));
  EXPECT_FALSE(mixer.IsPlaying(voice));
  mixer.Play(voice, false);
  EXPECT_EQ(Left(Render(mixer, 3, 8000, 2)), (std::vector<int>{1, 2, 3}));

  // A removed voice is gone and silent.
  mixer.Play(voice, true);
  mixer.Remove(voice);
  EXPECT_EQ(mixer.VoiceCount(), 0u);
  EXPECT_EQ((std::vector<bool>{mixer.Play(voice, true), mixer.Rewind(voice), mixer.IsPlaying(voice)}),
            std::vector<bool>(3, false));
  EXPECT_EQ(Left(Render(mixer, 2, 8000, 2)), (std::vector<int>{0, 0}));
}

TEST(SoundMixer, OnlyPlainPcmOfEightOrSixteenBitsInOneOrTwoChannels) {
  AudioMixer mixer;
  const Bytes some(64, 1);
  EXPECT_NE(mixer.Add(Pcm(2, 16, 44100), some), 0u);
  EXPECT_EQ(mixer.Add(Pcm(1, 24, 44100), some), 0u);
  EXPECT_EQ(mixer.Add(Pcm(3, 16, 44100), some), 0u);
  EXPECT_EQ(mixer.Add(Pcm(1, 16, 0), some), 0u);
  EXPECT_EQ(mixer.Add(Pcm(2, 16, 44100), Bytes(3, 0)), 0u);  // not one whole frame
  WaveFormat badBlock = Pcm(2, 16, 44100);
  badBlock.blockAlign = 2;
  EXPECT_EQ(mixer.Add(badBlock, some), 0u);
  WaveFormat compressed = Pcm(1, 16, 8000);
  compressed.formatTag = 2;
  EXPECT_EQ(mixer.Add(compressed, some), 0u);

  // The extensible record plays when its sub-format is PCM.
  WaveFormat extensible = Pcm(2, 16, 44100);
  extensible.formatTag = 0xFFFE;
  extensible.extra = {16, 0, 3, 0, 0, 0, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x00,
                      0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};
  EXPECT_NE(mixer.Add(extensible, some), 0u);
  extensible.extra[6] = 0x03;  // floating point
  EXPECT_EQ(mixer.Add(extensible, some), 0u);
  EXPECT_EQ(mixer.VoiceCount(), 2u);
}

TEST(SoundMixer, BuffersOfTheMixerOutliveItsDevice) {
  auto mixer = std::make_shared<AudioMixer>();
  auto buffer = std::make_unique<platform::MixerBuffer>(mixer, mixer->Add(Pcm(1, 8, 8000), Bytes{200, 100}));
  std::weak_ptr<AudioMixer> watch = mixer;
  mixer.reset();  // the device lets go of its mixer
  EXPECT_EQ((std::vector<bool>{buffer->Play(false), buffer->IsPlaying(), buffer->SetVolume(-100), buffer->Rewind()}),
            std::vector<bool>(4, true));
  buffer.reset();
  EXPECT_TRUE(watch.expired());
}

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
  EXPECT_EQ(std::tuple(soundOutput, Audio().IsOpen()), std::tuple(backend.Audio(), true));
  EXPECT_EQ(LoadSound(0, nullptr), nullptr);
  CloseSoundOutput();
  EXPECT_EQ(std::tuple(soundOutput, Audio().IsOpen()), std::tuple(nullptr, false));

  // Without a device, or with one that does not open, nothing loads and nobody is told.
  backend.SetAudioPresent(false);
  OpenSoundOutput(0);
  EXPECT_EQ(std::tuple(soundOutput, LoadSound(0, "dat\\tone.wav"), LoadSound(0, "dat\\missing.wav")),
            std::tuple(nullptr, nullptr, nullptr));
  backend.SetAudioPresent(true);
  Audio().FailOpen(true);
  OpenSoundOutput(0);
  EXPECT_EQ(std::tuple(soundOutput, LoadSound(0, "dat\\tone.wav")), std::tuple(nullptr, nullptr));
  PlaySound(0, nullptr);
  FreeSound(nullptr);
  EXPECT_TRUE(backend.MessageBoxes().empty());
  EXPECT_TRUE(Requests().empty());
}

TEST_F(SoundEffectTest, ASoundHoldsItsWaveAndABufferThatPlaysAtTheEffectsVolume) {
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
  const auto& buffer = Audio().Buffers()[0];
  EXPECT_EQ(std::tuple(buffer.format, buffer.samples), std::tuple(*sound->format, Pcm16(kTone)));
  EXPECT_EQ(Requests(), (Calls{{Request::Create, 1, 0}, {Request::SetVolume, 1, 0}}));
  EXPECT_EQ(sound->playing, 0);
  EXPECT_TRUE(backend.MessageBoxes().empty());

  // Playing sets the effects volume; a sound still playing starts over.
  PlaySound(0, sound);
  EXPECT_EQ(std::pair(sound->volume, sound->playing), std::pair(400, 1));
  PlaySound(0, sound);  // still playing: it starts over instead of layering
  Audio().Render(4, 22050);
  // At half the effects volume: 200 of 400, which is 20 dB down. Ended, it starts again.
  effectsVolume = 50;
  PlaySound(0, sound);
  EXPECT_EQ(sound->volume, 200);
  EXPECT_EQ(Requests(), (Calls{{Request::SetVolume, 1, 0}, {Request::Play, 1, 0}, {Request::SetVolume, 1, 0},
                               {Request::Rewind, 1, 0}, {Request::SetVolume, 1, -2000}, {Request::Play, 1, 0}}));
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
  EXPECT_EQ(std::pair(sound->volume, sound->playing), std::pair(200, 0));
  FreeSound(sound);
  EXPECT_EQ(Requests(), (Calls{{Request::Release, 1, 0}}));
  EXPECT_EQ(Audio().LiveBuffers(), 0);
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
