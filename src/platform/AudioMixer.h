#pragma once
// The software mixer behind both audio devices: every buffer is a voice with its own
// rate, channel count and sample size; a mix converts each playing voice to the output
// rate (linear interpolation) and channel count, scales it by its volume and sums the
// voices with saturation into signed 16-bit samples. It knows nothing of SDL, so tests
// can run it directly. Every operation is safe to call from the game thread while another
// thread mixes.
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "platform/AudioDevice.h"

namespace platform {

// True for formats a voice can hold: PCM (plain, or in the extensible record with the PCM
// sub-format) of 8 or 16 bits, 1 or 2 channels, any rate, a block size that matches, and
// samples of at least one whole frame.
bool MixerAccepts(const WaveFormat& format, std::size_t sampleBytes);

// The linear gain of a volume in hundredths of a decibel, as a 16.16 fixed-point factor:
// 65536 at 0, 0 at -10000 and below.
std::int32_t GainForVolume(std::int32_t hundredthsOfDecibel);

class AudioMixer {
 public:
  using VoiceId = std::uint32_t;

  // A stopped voice at full volume holding a copy of the samples; 0 when not accepted.
  VoiceId Add(const WaveFormat& format, std::span<const std::uint8_t> samples);
  void Remove(VoiceId voice);

  // Each is false for an unknown voice; SetVolume also for a volume above 0 or below -10000.
  bool SetVolume(VoiceId voice, std::int32_t hundredthsOfDecibel);
  bool Play(VoiceId voice, bool looping);
  bool Rewind(VoiceId voice);
  bool IsPlaying(VoiceId voice);

  // Fills frames of interleaved signed 16-bit output at the given rate and channel count
  // (mono gets the average of left and right; channels past the second stay silent) and
  // moves every playing voice on. A voice that is not looping stops at its end and goes
  // back to its start.
  void Mix(std::int16_t* out, std::size_t frames, int outRate, int outChannels);

  std::size_t VoiceCount();

  // The player's loudness, 0 to 100 each, over every voice's own volume: looping voices
  // (music and ambient loops) take the music's, the others the effects'.
  void SetLevels(int effectsPercent, int musicPercent);

 private:
  struct Voice {
    int channels = 0;
    int bytesPerSample = 0;
    std::uint32_t rate = 0;
    std::vector<std::uint8_t> samples;
    std::size_t frames = 0;
    std::int32_t gain = 65536;
    bool playing = false;
    bool looping = false;
    std::uint64_t position = 0;  // in frames, 32.32 fixed point
  };
  static void MixVoice(Voice& voice, std::int32_t gain, std::int32_t* sum, std::size_t frames, int outRate);

  std::mutex mutex;
  std::map<VoiceId, Voice> voices;
  VoiceId nextId = 1;
  std::vector<std::int32_t> sum;  // left and right of each output frame
  int effectsLevel = 100;
  int musicLevel = 100;
};

// A buffer of the device that is one voice of a shared mixer. The mixer outlives the
// device that made it as long as buffers hold it.
class MixerBuffer : public AudioBuffer {
 public:
  MixerBuffer(std::shared_ptr<AudioMixer> mixer, AudioMixer::VoiceId voice);
  ~MixerBuffer() override;
  MixerBuffer(const MixerBuffer&) = delete;
  MixerBuffer& operator=(const MixerBuffer&) = delete;

  bool SetVolume(std::int32_t hundredthsOfDecibel) override;
  bool Play(bool looping) override;
  bool IsPlaying() override;
  bool Rewind() override;

 private:
  std::shared_ptr<AudioMixer> mixer;
  AudioMixer::VoiceId voice;
};

}  // namespace platform
