#pragma once
// Sound effects: a wave file read whole into memory and copied into its own buffer of
// the sound device. Playing a sound starts its buffer, or rewinds it when it is already
// playing, so that a sound never overlaps itself while different sounds play together.
// The volume follows effectsVolume (shell/Globals.h); muted, nothing plays.
#include <cstdint>
#include <memory>

#include "platform/AudioDevice.h"
#include "platform/Messages.h"

struct SoundEffect {
  std::unique_ptr<std::uint8_t[]> data;  // the whole "data" chunk
  std::uint32_t size = 0;                // bytes of data
  std::unique_ptr<platform::WaveFormat> format;
  std::int32_t volume = 0;   // 0..400, set by PlaySound
  std::int32_t loop = 0;     // 1: plays looping; the owner sets it after loading
  std::int32_t playing = 0;  // 1 after a successful start
  std::unique_ptr<platform::AudioBuffer> buffer;
  char fileName[260] = {};
};

// The sound output: the device of the backend once opened, else null (the game is silent).
extern platform::AudioDevice* soundOutput;

// Opens the backend's sound device; without one the output stays null, with no message.
void OpenSoundOutput(platform::WindowHandle window);
void CloseSoundOutput();

// A sound from a wave file named as the game names it ("dat\\button2.wav"), or null: at
// once without a sound output; after a message box when the file cannot be read or the
// device refuses it. The window is the parent of the boxes (0: none).
SoundEffect* LoadSound(platform::WindowHandle window, const char* fileName);
// Plays the sound from its start at the effects volume; null does nothing.
void PlaySound(platform::WindowHandle window, SoundEffect* sound);
// Releases the buffer (which stops it) and frees the sound; null does nothing.
void FreeSound(SoundEffect* sound);
