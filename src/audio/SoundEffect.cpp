#include "audio/SoundEffect.h"

#include <cstring>
#include <new>
#include <span>

#include "audio/WaveReader.h"
#include "platform/DataPath.h"
#include "platform/Window.h"
#include "shell/Globals.h"

platform::AudioDevice* soundOutput = nullptr;

void OpenSoundOutput(platform::WindowHandle) {
  soundOutput = nullptr;
  platform::Backend* backend = platform::CurrentBackend();
  platform::AudioDevice* device = backend ? backend->Audio() : nullptr;
  if (device && device->Open()) soundOutput = device;
}

void CloseSoundOutput() {
  if (soundOutput) soundOutput->Close();
  soundOutput = nullptr;
}

SoundEffect* LoadSound(platform::WindowHandle window, const char* fileName) {
  if (!soundOutput || !fileName) return nullptr;
  auto* sound = new (std::nothrow) SoundEffect;
  if (!sound) {
    platform::MessageBox(window, "Cannot add this file", "Out of Memory", platform::MB_ICONHAND);
    return nullptr;
  }
  std::strncpy(sound->fileName, fileName, sizeof sound->fileName - 1);

  if (WaveLoadFile(platform::DataPath(sound->fileName), sound->size, sound->format, sound->data) != 0) {
    platform::MessageBox(window, "Bad wave file or file too big to fit in memory", "Cannot load wave",
                         platform::MB_ICONHAND);
    delete sound;
    return nullptr;
  }

  // The buffer gets its own copy of the samples and the whole format, extra bytes and
  // all; it starts at full volume.
  sound->buffer = soundOutput->CreateBuffer(*sound->format, std::span(sound->data.get(), sound->size));
  if (!sound->buffer || !sound->buffer->SetVolume(platform::kVolumeFull)) {
    platform::MessageBox(window, "Cannot create new buffer", "Direct Sound Error", platform::MB_ICONHAND);
    delete sound;
    return nullptr;
  }
  return sound;
}

void PlaySound(platform::WindowHandle window, SoundEffect* sound) {
  if (!sound || effectsVolume < 1) return;
  sound->volume = effectsVolume * 4;
  if (!soundOutput || !sound->buffer) return;
  // 400 is full volume (0); each step below it is a tenth of a decibel.
  sound->buffer->SetVolume((sound->volume - 400) * 10);
  if (sound->buffer->IsPlaying()) {
    // A sound never overlaps itself: playing it again starts it over.
    if (!sound->buffer->Rewind()) {
      platform::MessageBox(window, "Cannot set current position", "Direct Sound Error", platform::MB_OK);
    }
    return;
  }
  if (!sound->buffer->Play(sound->loop == 1)) {
    platform::MessageBox(window, "Cannot start playing", "Direct Sound Error", platform::MB_OK);
    return;
  }
  sound->playing = 1;
}

void FreeSound(SoundEffect* sound) {
  if (!sound) return;
  sound->buffer.reset();
  delete sound;
}
