// The mixer behind the sound devices: sample sizes, channel counts and rates converted to
// the output, volumes in hundredths of a decibel, saturating sums, the end of a buffer,
// looping and rewinding.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/AudioMixer.h"
#include "support/WaveBytes.h"

using platform::AudioMixer;
using platform::WaveFormat;

namespace {

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

TEST(SoundMixer, VoicesAddUpAndSaturate) {
  AudioMixer mixer;
  const auto a = mixer.Add(Pcm(1, 16, 8000), Pcm16({10000, 30000, -30000, 5}));
  const auto b = mixer.Add(Pcm(1, 16, 8000), Pcm16({5000, 30000, -30000, -5}));
  mixer.Play(a, false);
  mixer.Play(b, false);
  EXPECT_EQ(Left(Render(mixer, 4, 8000, 2)), (std::vector<int>{15000, 32767, -32768, 0}));
}

TEST(SoundMixer, VolumeIsInHundredthsOfADecibel) {
  EXPECT_EQ(platform::GainForVolume(0), 65536);
  EXPECT_EQ(platform::GainForVolume(-10000), 0);
  // -20 dB is a tenth of the amplitude, -6 dB about half.
  EXPECT_NEAR(platform::GainForVolume(-2000), 6554, 1);
  EXPECT_NEAR(platform::GainForVolume(-600), 32845, 2);

  AudioMixer mixer;
  const auto voice = mixer.Add(Pcm(1, 16, 8000), Pcm16({20000, -20000}));
  EXPECT_FALSE(mixer.SetVolume(voice, 1));
  EXPECT_FALSE(mixer.SetVolume(voice, -10001));
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
  EXPECT_FALSE(mixer.Play(voice, true));
  EXPECT_FALSE(mixer.Rewind(voice));
  EXPECT_FALSE(mixer.IsPlaying(voice));
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
  EXPECT_TRUE(buffer->Play(false));
  EXPECT_TRUE(buffer->IsPlaying());
  EXPECT_TRUE(buffer->SetVolume(-100));
  EXPECT_TRUE(buffer->Rewind());
  buffer.reset();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
