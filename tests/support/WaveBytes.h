#pragma once
// Builds RIFF wave files in memory for tests: little-endian fields and a plain PCM file.
#include <cstdint>
#include <string_view>
#include <vector>

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

// A wave file of 16-bit mono samples at 22050 Hz, or of the format tag given with its
// extra format bytes.
inline Bytes MakeWaveFile(const std::vector<int>& samples, std::uint16_t tag = 1, const Bytes& extra = {}) {
  const Bytes data = Pcm16(samples);
  Bytes fmt;
  Put16(fmt, tag);
  Put16(fmt, 1);
  Put32(fmt, 22050);
  Put32(fmt, 44100);
  Put16(fmt, 2);
  Put16(fmt, 16);
  if (tag != 1) {
    Put16(fmt, static_cast<std::uint32_t>(extra.size()));
    fmt.insert(fmt.end(), extra.begin(), extra.end());
  }
  Bytes file;
  PutId(file, "RIFF");
  Put32(file, static_cast<std::uint32_t>(4 + 8 + fmt.size() + 8 + data.size()));
  PutId(file, "WAVE");
  PutId(file, "fmt ");
  Put32(file, static_cast<std::uint32_t>(fmt.size()));
  file.insert(file.end(), fmt.begin(), fmt.end());
  PutId(file, "data");
  Put32(file, static_cast<std::uint32_t>(data.size()));
  file.insert(file.end(), data.begin(), data.end());
  return file;
}
