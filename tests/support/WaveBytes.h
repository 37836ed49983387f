#pragma once
// Builds RIFF wave files in memory for tests: little-endian fields, chunks, the format
// record, and a plain PCM file.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AudioDevice.h"

using Bytes = std::vector<std::uint8_t>;

inline void Put16(Bytes& b, std::uint32_t v) {
  b.push_back(static_cast<std::uint8_t>(v));
  b.push_back(static_cast<std::uint8_t>(v >> 8));
}
inline void Put32(Bytes& b, std::uint32_t v) {
  Put16(b, v & 0xFFFF);
  Put16(b, v >> 16);
}
inline void PutId(Bytes& b, std::string_view id) { b.insert(b.end(), id.begin(), id.end()); }

// 16-bit samples as a wave file's data holds them.
inline Bytes Pcm16(const std::vector<int>& samples) {
  Bytes data;
  for (int s : samples) Put16(data, static_cast<std::uint16_t>(s));
  return data;
}

struct Chunk {
  std::string id;
  Bytes body;
  std::optional<std::uint32_t> claimedSize = std::nullopt;  // a size field that lies
};

// A RIFF file of the given chunks, each followed by a pad byte when its body is odd.
inline Bytes Riff(const std::vector<Chunk>& chunks, const std::string& form = "WAVE",
                  const std::string& riffId = "RIFF") {
  Bytes inner;
  PutId(inner, form);
  for (const Chunk& c : chunks) {
    PutId(inner, c.id);
    Put32(inner, c.claimedSize.value_or(static_cast<std::uint32_t>(c.body.size())));
    inner.insert(inner.end(), c.body.begin(), c.body.end());
    if (c.body.size() % 2) inner.push_back(0);
  }
  Bytes file;
  PutId(file, riffId);
  Put32(file, static_cast<std::uint32_t>(inner.size()));
  file.insert(file.end(), inner.begin(), inner.end());
  return file;
}

// The format record of a wave of this layout, with the extra bytes it keeps.
inline platform::WaveFormat Format(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                                   Bytes extra = {}) {
  const std::uint16_t block = static_cast<std::uint16_t>(channels * bits / 8);
  return {tag, channels, rate, rate * block, block, bits, std::move(extra)};
}

// The body of a "fmt " chunk; extra bytes (with their count) only when given.
inline Bytes FmtBody(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate, std::uint16_t bits,
                     std::optional<Bytes> extra = std::nullopt) {
  const platform::WaveFormat f = Format(tag, channels, rate, bits);
  Bytes b;
  for (std::uint32_t field : {f.formatTag, f.channels}) Put16(b, field);
  for (std::uint32_t field : {f.samplesPerSec, f.avgBytesPerSec}) Put32(b, field);
  for (std::uint32_t field : {f.blockAlign, f.bitsPerSample}) Put16(b, field);
  if (extra) {
    Put16(b, static_cast<std::uint32_t>(extra->size()));
    b.insert(b.end(), extra->begin(), extra->end());
  }
  return b;
}

// A wave file of 16-bit mono samples at 22050 Hz, or of the format tag given with its
// extra format bytes.
inline Bytes MakeWaveFile(const std::vector<int>& samples, std::uint16_t tag = 1, const Bytes& extra = {}) {
  return Riff({{"fmt ", FmtBody(tag, 1, 22050, 16, tag != 1 ? std::optional(extra) : std::nullopt)},
               {"data", Pcm16(samples)}});
}
