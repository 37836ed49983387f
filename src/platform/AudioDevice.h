#pragma once
// The sound device in the shape the game was written against: one static buffer per
// sound, holding a copy of its samples, with a volume, play once or looping, a playing
// status, a rewind to the start, and release (deleting the buffer). Volumes are in
// hundredths of a decibel: 0 is full, -10000 silent.
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace platform {

inline constexpr std::uint16_t kWaveFormatPcm = 1;
inline constexpr std::uint16_t kWaveFormatExtensible = 0xFFFE;
inline constexpr std::int32_t kVolumeFull = 0;
inline constexpr std::int32_t kVolumeSilent = -10000;

// The format record of a wave file: the 16 bytes of the PCM format, then (for other
// formats) a count of extra bytes and the extra bytes themselves.
struct WaveFormat {
  std::uint16_t formatTag = 0;
  std::uint16_t channels = 0;
  std::uint32_t samplesPerSec = 0;
  std::uint32_t avgBytesPerSec = 0;
  std::uint16_t blockAlign = 0;
  std::uint16_t bitsPerSample = 0;
  std::vector<std::uint8_t> extra;  // the count field is extra.size(); empty for PCM

  bool operator==(const WaveFormat&) const = default;
};

class AudioBuffer {
 public:
  virtual ~AudioBuffer() = default;  // release: the buffer stops and is gone

  virtual bool SetVolume(std::int32_t hundredthsOfDecibel) = 0;
  // Starts (or keeps) playing from the current position; a looping buffer never ends.
  virtual bool Play(bool looping) = 0;
  virtual bool IsPlaying() = 0;
  // Sets the play position to the start, playing or not.
  virtual bool Rewind() = 0;
};

class AudioDevice {
 public:
  virtual ~AudioDevice() = default;

  // Starts the sound output; false when there is no sound device.
  virtual bool Open() = 0;
  // Stops the output. Buffers still held stay safe to use and to release; they are silent.
  virtual void Close() = 0;
  // A buffer with a copy of the samples, at full volume and stopped; null when the device
  // is closed or the format is not one it plays.
  virtual std::unique_ptr<AudioBuffer> CreateBuffer(const WaveFormat& format,
                                                    std::span<const std::uint8_t> samples) = 0;
};

}  // namespace platform
