#pragma once
// The sound device of the headless backend. It writes down every request (buffers made
// with their format and samples, volumes, plays with their loop flag, rewinds, releases),
// mixes like the real device when a test asks it to render, and can be made to fail.
// Time does not pass on its own: a buffer stops playing only when rendering reaches its end.
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/AudioDevice.h"

namespace platform {

class HeadlessAudio : public AudioDevice {
 public:
  enum class Request { Create, SetVolume, Play, Rewind, Release };
  struct Call {
    Request request;
    int buffer;          // the buffer, numbered from 1 in order of creation; 0 for a refused Create
    std::int32_t value;  // SetVolume: the volume; Play: 1 when looping; otherwise 0
  };
  struct BufferRecord {
    int number = 0;
    WaveFormat format;
    std::vector<std::uint8_t> samples;
    bool released = false;
  };

  HeadlessAudio();
  ~HeadlessAudio() override;

  bool Open() override;
  void Close() override;
  std::unique_ptr<AudioBuffer> CreateBuffer(const WaveFormat& format, std::span<const std::uint8_t> samples) override;

  bool IsOpen() const;
  // Every buffer made (refused ones are not), in order; released ones stay listed.
  const std::vector<BufferRecord>& Buffers() const;
  // Every request made to a buffer, in order, the refused ones included.
  const std::vector<Call>& Calls() const;
  std::vector<Call> CallsOf(Request request) const;
  bool IsPlaying(int buffer) const;
  int LiveBuffers() const;  // made and not yet released
  void ClearRecord();       // forgets the calls (the buffers stay as they are)

  // Mixes the playing buffers as the real device would, moving them on.
  std::vector<std::int16_t> Render(std::size_t frames, int rate = 44100, int channels = 2);

  // Fault injection: the output does not open; making buffers, playing or rewinding fails.
  void FailOpen(bool fail);
  void FailCreate(bool fail);
  void FailPlay(bool fail);
  void FailRewind(bool fail);

 private:
  struct State;
  class Buffer;
  std::shared_ptr<State> state;  // shared with the buffers, which may outlive the device
};

}  // namespace platform
