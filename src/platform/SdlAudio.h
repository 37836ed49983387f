#pragma once
// The real sound device: one SDL audio device, opened with the sound output, whose
// callback mixes every playing buffer (see AudioMixer.h).
#include <cstdint>
#include <memory>

#include "platform/AudioDevice.h"

namespace platform {

class AudioMixer;

class SdlAudio : public AudioDevice {
 public:
  SdlAudio();
  ~SdlAudio() override;
  SdlAudio(const SdlAudio&) = delete;
  SdlAudio& operator=(const SdlAudio&) = delete;

  bool Open() override;
  void Close() override;
  std::unique_ptr<AudioBuffer> CreateBuffer(const WaveFormat& format, std::span<const std::uint8_t> samples) override;
  // The player's loudness of the effects and of the music, 0 to 100 each.
  void SetLevels(int effectsPercent, int musicPercent);

 private:
  static void Callback(void* self, std::uint8_t* stream, int length);

  std::shared_ptr<AudioMixer> mixer;
  std::uint32_t device = 0;  // 0: not open
  int rate = 0;
  int channels = 0;
};

}  // namespace platform
