#include "platform/HeadlessAudio.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/AudioMixer.h"

namespace platform {

struct HeadlessAudio::State {
  std::shared_ptr<AudioMixer> mixer = std::make_shared<AudioMixer>();
  std::vector<BufferRecord> buffers;
  std::vector<Call> calls;
  std::vector<AudioMixer::VoiceId> voices;  // of buffer number n at n - 1
  bool open = false;
  bool failOpen = false;
  bool failCreate = false;
  bool failPlay = false;
  bool failRewind = false;
};

class HeadlessAudio::Buffer : public AudioBuffer {
 public:
  Buffer(std::shared_ptr<State> shared, int bufferNumber)
      : state(std::move(shared)), number(bufferNumber), voice(state->voices[number - 1]) {}
  ~Buffer() override {
    state->calls.push_back({Request::Release, number, 0});
    state->buffers[number - 1].released = true;
    state->mixer->Remove(voice);
  }
  Buffer(const Buffer&) = delete;
  Buffer& operator=(const Buffer&) = delete;

  bool SetVolume(std::int32_t hundredthsOfDecibel) override {
    state->calls.push_back({Request::SetVolume, number, hundredthsOfDecibel});
    return state->mixer->SetVolume(voice, hundredthsOfDecibel);
  }
  bool Play(bool looping) override {
    state->calls.push_back({Request::Play, number, looping ? 1 : 0});
    if (state->failPlay) return false;
    return state->mixer->Play(voice, looping);
  }
  bool IsPlaying() override { return state->mixer->IsPlaying(voice); }
  bool Rewind() override {
    state->calls.push_back({Request::Rewind, number, 0});
    if (state->failRewind) return false;
    return state->mixer->Rewind(voice);
  }

 private:
  std::shared_ptr<State> state;
  int number;
  AudioMixer::VoiceId voice;
};

HeadlessAudio::HeadlessAudio() : state(std::make_shared<State>()) {}

HeadlessAudio::~HeadlessAudio() = default;

bool HeadlessAudio::Open() {
  if (state->failOpen) return false;
  state->open = true;
  return true;
}

void HeadlessAudio::Close() { state->open = false; }

std::unique_ptr<AudioBuffer> HeadlessAudio::CreateBuffer(const WaveFormat& format,
                                                         std::span<const std::uint8_t> samples) {
  const int number = static_cast<int>(state->buffers.size()) + 1;
  if (!state->open || state->failCreate) {
    state->calls.push_back({Request::Create, 0, 0});
    return nullptr;
  }
  const AudioMixer::VoiceId voice = state->mixer->Add(format, samples);
  if (voice == 0) {
    state->calls.push_back({Request::Create, 0, 0});
    return nullptr;
  }
  state->calls.push_back({Request::Create, number, 0});
  state->buffers.push_back({number, format, std::vector<std::uint8_t>(samples.begin(), samples.end()), false});
  state->voices.push_back(voice);
  return std::make_unique<Buffer>(state, number);
}

bool HeadlessAudio::IsOpen() const { return state->open; }

const std::vector<HeadlessAudio::BufferRecord>& HeadlessAudio::Buffers() const { return state->buffers; }

const std::vector<HeadlessAudio::Call>& HeadlessAudio::Calls() const { return state->calls; }

std::vector<HeadlessAudio::Call> HeadlessAudio::CallsOf(Request request) const {
  std::vector<Call> found;
  std::copy_if(state->calls.begin(), state->calls.end(), std::back_inserter(found),
               [request](const Call& call) { return call.request == request; });
  return found;
}

bool HeadlessAudio::IsPlaying(int buffer) const {
  if (buffer < 1 || buffer > static_cast<int>(state->voices.size())) return false;
  return state->mixer->IsPlaying(state->voices[buffer - 1]);
}

int HeadlessAudio::LiveBuffers() const {
  return static_cast<int>(std::count_if(state->buffers.begin(), state->buffers.end(),
                                        [](const BufferRecord& b) { return !b.released; }));
}

void HeadlessAudio::ClearRecord() { state->calls.clear(); }

std::vector<std::int16_t> HeadlessAudio::Render(std::size_t frames, int rate, int channels) {
  std::vector<std::int16_t> out(frames * static_cast<std::size_t>(channels < 1 ? 1 : channels));
  state->mixer->Mix(out.data(), frames, rate, channels);
  return out;
}

void HeadlessAudio::FailOpen(bool fail) { state->failOpen = fail; }
void HeadlessAudio::FailCreate(bool fail) { state->failCreate = fail; }
void HeadlessAudio::FailPlay(bool fail) { state->failPlay = fail; }
void HeadlessAudio::FailRewind(bool fail) { state->failRewind = fail; }

}  // namespace platform
