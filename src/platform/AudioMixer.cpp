#include "platform/AudioMixer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace platform {
namespace {

// The sub-format of an extensible record that means plain PCM.
constexpr std::uint8_t kPcmSubFormat[16] = {0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x00,
                                            0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};
constexpr std::size_t kExtensibleExtra = 22;  // valid bits, channel mask, sub-format

bool IsPcm(const WaveFormat& format) {
  if (format.formatTag == kWaveFormatPcm) return true;
  if (format.formatTag != kWaveFormatExtensible || format.extra.size() < kExtensibleExtra) return false;
  return std::memcmp(format.extra.data() + 6, kPcmSubFormat, sizeof kPcmSubFormat) == 0;
}

struct Frame {
  std::int32_t left;
  std::int32_t right;
};

// One frame as signed 16-bit values; 8-bit samples are unsigned around 128.
Frame ReadFrame(const std::uint8_t* samples, std::size_t frame, int channels, int bytesPerSample) {
  const std::uint8_t* p = samples + frame * static_cast<std::size_t>(channels * bytesPerSample);
  auto sample = [bytesPerSample](const std::uint8_t* at) -> std::int32_t {
    if (bytesPerSample == 1) return (static_cast<std::int32_t>(at[0]) - 128) * 256;
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(at[0] | at[1] << 8));
  };
  const std::int32_t left = sample(p);
  const std::int32_t right = channels == 2 ? sample(p + bytesPerSample) : left;
  return {left, right};
}

std::int16_t Saturate(std::int32_t value) {
  return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, -32768, 32767));
}

}  // namespace

bool MixerAccepts(const WaveFormat& format, std::size_t sampleBytes) {
  if (!IsPcm(format)) return false;
  if (format.channels != 1 && format.channels != 2) return false;
  if (format.bitsPerSample != 8 && format.bitsPerSample != 16) return false;
  if (format.samplesPerSec == 0) return false;
  const std::size_t frameBytes = static_cast<std::size_t>(format.channels) * (format.bitsPerSample / 8);
  return format.blockAlign == frameBytes && sampleBytes >= frameBytes;
}

std::int32_t GainForVolume(std::int32_t hundredthsOfDecibel) {
  if (hundredthsOfDecibel <= kVolumeSilent) return 0;
  if (hundredthsOfDecibel >= kVolumeFull) return 65536;
  return static_cast<std::int32_t>(std::lround(65536.0 * std::pow(10.0, hundredthsOfDecibel / 2000.0)));
}

AudioMixer::VoiceId AudioMixer::Add(const WaveFormat& format, std::span<const std::uint8_t> samples) {
  if (!MixerAccepts(format, samples.size())) return 0;
  Voice voice;
  voice.channels = format.channels;
  voice.bytesPerSample = format.bitsPerSample / 8;
  voice.rate = format.samplesPerSec;
  voice.frames = samples.size() / format.blockAlign;
  voice.samples.assign(samples.begin(), samples.end());
  std::lock_guard lock(mutex);
  const VoiceId id = nextId++;
  if (nextId == 0) nextId = 1;
  voices.emplace(id, std::move(voice));
  return id;
}

void AudioMixer::Remove(VoiceId voice) {
  std::lock_guard lock(mutex);
  voices.erase(voice);
}

bool AudioMixer::SetVolume(VoiceId voice, std::int32_t hundredthsOfDecibel) {
  if (hundredthsOfDecibel > kVolumeFull || hundredthsOfDecibel < kVolumeSilent) return false;
  std::lock_guard lock(mutex);
  const auto found = voices.find(voice);
  if (found == voices.end()) return false;
  found->second.gain = GainForVolume(hundredthsOfDecibel);
  return true;
}

bool AudioMixer::Play(VoiceId voice, bool looping) {
  std::lock_guard lock(mutex);
  const auto found = voices.find(voice);
  if (found == voices.end()) return false;
  found->second.playing = true;
  found->second.looping = looping;
  return true;
}

bool AudioMixer::Rewind(VoiceId voice) {
  std::lock_guard lock(mutex);
  const auto found = voices.find(voice);
  if (found == voices.end()) return false;
  found->second.position = 0;
  return true;
}

bool AudioMixer::IsPlaying(VoiceId voice) {
  std::lock_guard lock(mutex);
  const auto found = voices.find(voice);
  return found != voices.end() && found->second.playing;
}

std::size_t AudioMixer::VoiceCount() {
  std::lock_guard lock(mutex);
  return voices.size();
}

void AudioMixer::MixVoice(Voice& voice, std::int32_t gain, std::int32_t* sum, std::size_t frames, int outRate) {
  const std::uint64_t end = static_cast<std::uint64_t>(voice.frames) << 32;
  std::uint64_t step = (static_cast<std::uint64_t>(voice.rate) << 32) / static_cast<std::uint64_t>(outRate);
  if (step == 0) step = 1;
  for (std::size_t n = 0; n < frames; ++n) {
    if (voice.position >= end) {
      if (!voice.looping) break;
      voice.position %= end;
    }
    const std::size_t index = static_cast<std::size_t>(voice.position >> 32);
    const std::int64_t fraction = static_cast<std::int64_t>(voice.position & 0xFFFFFFFFu);
    std::size_t next = index + 1;
    if (next >= voice.frames) next = voice.looping ? 0 : index;
    const Frame a = ReadFrame(voice.samples.data(), index, voice.channels, voice.bytesPerSample);
    const Frame b = ReadFrame(voice.samples.data(), next, voice.channels, voice.bytesPerSample);
    constexpr std::int64_t kHalf = std::int64_t{1} << 31;  // rounds to the nearest value
    const std::int64_t left = a.left + (((b.left - a.left) * fraction + kHalf) >> 32);
    const std::int64_t right = a.right + (((b.right - a.right) * fraction + kHalf) >> 32);
    sum[2 * n] += static_cast<std::int32_t>((left * gain) >> 16);
    sum[2 * n + 1] += static_cast<std::int32_t>((right * gain) >> 16);
    voice.position += step;
  }
  if (!voice.looping && voice.position >= end) {
    voice.playing = false;
    voice.position = 0;
  }
}

void AudioMixer::SetLevels(int effectsPercent, int musicPercent) {
  std::lock_guard lock(mutex);
  effectsLevel = std::clamp(effectsPercent, 0, 100);
  musicLevel = std::clamp(musicPercent, 0, 100);
}

void AudioMixer::Mix(std::int16_t* out, std::size_t frames, int outRate, int outChannels) {
  if (!out || frames == 0 || outChannels < 1) return;
  std::lock_guard lock(mutex);
  sum.assign(frames * 2, 0);
  if (outRate > 0) {
    for (auto& [id, voice] : voices) {
      const int level = voice.looping ? musicLevel : effectsLevel;
      if (voice.playing) MixVoice(voice, voice.gain * level / 100, sum.data(), frames, outRate);
    }
  }
  for (std::size_t n = 0; n < frames; ++n) {
    std::int16_t* frame = out + n * static_cast<std::size_t>(outChannels);
    const std::int32_t left = sum[2 * n];
    const std::int32_t right = sum[2 * n + 1];
    if (outChannels == 1) {
      frame[0] = Saturate((left + right) / 2);
      continue;
    }
    frame[0] = Saturate(left);
    frame[1] = Saturate(right);
    for (int c = 2; c < outChannels; ++c) frame[c] = 0;
  }
}

MixerBuffer::MixerBuffer(std::shared_ptr<AudioMixer> shared, AudioMixer::VoiceId id)
    : mixer(std::move(shared)), voice(id) {}

MixerBuffer::~MixerBuffer() { mixer->Remove(voice); }

bool MixerBuffer::SetVolume(std::int32_t hundredthsOfDecibel) { return mixer->SetVolume(voice, hundredthsOfDecibel); }

bool MixerBuffer::Play(bool looping) { return mixer->Play(voice, looping); }

bool MixerBuffer::IsPlaying() { return mixer->IsPlaying(voice); }

bool MixerBuffer::Rewind() { return mixer->Rewind(voice); }

}  // namespace platform
