// Any bytes as a wave file: the reader either gives a format and exactly the bytes of
// the data chunk, or refuses the input with an error code and leaves nothing behind, and
// it never reads outside the bytes it was given. The step-by-step reading agrees with
// the whole load.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>

#include "audio/WaveReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);

  std::uint32_t loadedSize = 1;
  std::unique_ptr<platform::WaveFormat> format;
  std::unique_ptr<std::uint8_t[]> samples;
  const int loaded = WaveLoadBytes(bytes, loadedSize, format, samples);
  if (loaded == 0) {
    if (!format || !samples || loadedSize > size) std::abort();
  } else if (format || samples || loadedSize != 0) {
    std::abort();
  }

  // The same wave read in pieces of 7 bytes.
  std::unique_ptr<WaveFile> file;
  std::unique_ptr<platform::WaveFormat> stepFormat;
  RiffChunk riff;
  int error = WaveOpenBytes(bytes, file, stepFormat, riff);
  if ((error == 0) != (file != nullptr) || (error == 0) != (stepFormat != nullptr)) std::abort();
  RiffChunk chunk;
  if (error == 0) error = WaveStartDataRead(*file, chunk, riff);
  std::uint32_t total = 0;
  while (error == 0 && chunk.size > 0) {
    std::uint8_t piece[7];
    std::uint32_t got = 0;
    const std::uint32_t before = chunk.size;
    error = WaveReadFile(*file, sizeof piece, piece, chunk, got);
    if (error == 0) {
      if (got != (before < sizeof piece ? before : sizeof piece)) std::abort();
      if (loaded == 0 && (total + got > loadedSize || std::memcmp(piece, samples.get() + total, got) != 0)) std::abort();
      total += got;
    }
  }
  if (loaded == 0 && (error != 0 || total != loadedSize || !(*stepFormat == *format))) std::abort();
  if (loaded != 0 && error == 0) std::abort();
  return 0;
}
