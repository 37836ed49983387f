#include "platform/SdlAudio.h"

#include <SDL.h>

#include "platform/AudioMixer.h"

namespace platform {

SdlAudio::SdlAudio() : mixer(std::make_shared<AudioMixer>()) {}

void SdlAudio::SetLevels(int effectsPercent, int musicPercent) { mixer->SetLevels(effectsPercent, musicPercent); }

SdlAudio::~SdlAudio() { Close(); }

bool SdlAudio::Open() {
  if (device != 0) return true;
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
  SDL_AudioSpec wanted{};
  wanted.freq = 44100;
  wanted.format = AUDIO_S16SYS;
  wanted.channels = 2;
  wanted.samples = 1024;
  wanted.callback = &SdlAudio::Callback;
  wanted.userdata = this;
  SDL_AudioSpec obtained{};
  // The mixer follows whatever rate and channel count the device prefers; SDL converts
  // the sample format if the device wants another.
  const SDL_AudioDeviceID opened = SDL_OpenAudioDevice(
      nullptr, 0, &wanted, &obtained, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE | SDL_AUDIO_ALLOW_CHANNELS_CHANGE);
  if (opened == 0 || obtained.freq <= 0 || obtained.channels < 1) {
    if (opened != 0) SDL_CloseAudioDevice(opened);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return false;
  }
  device = opened;
  rate = obtained.freq;
  channels = obtained.channels;
  SDL_PauseAudioDevice(device, 0);
  return true;
}

void SdlAudio::Close() {
  if (device == 0) return;
  SDL_CloseAudioDevice(device);  // waits for a running callback to finish
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  device = 0;
}

std::unique_ptr<AudioBuffer> SdlAudio::CreateBuffer(const WaveFormat& format, std::span<const std::uint8_t> samples) {
  if (device == 0) return nullptr;
  const AudioMixer::VoiceId voice = mixer->Add(format, samples);
  if (voice == 0) return nullptr;
  return std::make_unique<MixerBuffer>(mixer, voice);
}

void SdlAudio::Callback(void* self, std::uint8_t* stream, int length) {
  const SdlAudio& audio = *static_cast<SdlAudio*>(self);
  const std::size_t frameBytes = sizeof(std::int16_t) * static_cast<std::size_t>(audio.channels);
  const std::size_t frames = static_cast<std::size_t>(length) / frameBytes;
  audio.mixer->Mix(reinterpret_cast<std::int16_t*>(stream), frames, audio.rate, audio.channels);
}

}  // namespace platform
