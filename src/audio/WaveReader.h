#pragma once
// The reader of RIFF wave files: the format record and the whole "data" chunk. Chunks
// may come in any order; chunks the reader does not need ("LIST", "fact", ...) are
// skipped, and a chunk of odd size is followed by one pad byte. Every read stays inside
// the file, and nothing is allocated for a data chunk that claims more than the file has.
//
// The four operations return 0 on success or an error code below.
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

#include "platform/AudioDevice.h"

inline constexpr int kWaveOutOfMemory = 0xE000;
inline constexpr int kWaveCannotOpen = 0xE100;
// Not a RIFF "WAVE" file, a "fmt " chunk shorter than 16 bytes, or missing extra bytes.
inline constexpr int kWaveNotWave = 0xE101;
inline constexpr int kWaveFormatUnreadable = 0xE102;  // the format record is cut short
inline constexpr int kWaveDataShort = 0xE103;          // the data chunk ends before its size
// The chunk reader's own error when a chunk is missing or its header cut short; it keeps
// the value of the classic multimedia file functions and is passed through unchanged.
inline constexpr int kWaveChunkNotFound = 265;

// A four-character chunk id as it is stored: first character in the lowest byte.
constexpr std::uint32_t ChunkId(const char (&name)[5]) {
  return static_cast<std::uint8_t>(name[0]) | static_cast<std::uint8_t>(name[1]) << 8 |
         static_cast<std::uint8_t>(name[2]) << 16 | static_cast<std::uint32_t>(static_cast<std::uint8_t>(name[3])) << 24;
}

struct RiffChunk {
  std::uint32_t id = 0;
  std::uint32_t size = 0;          // bytes of data, without the pad byte
  std::uint32_t formType = 0;      // "RIFF" and "LIST" chunks only
  std::uint64_t dataOffset = 0;    // where the data starts (the form type, for "RIFF")
};

// An open wave file: a file on disk, or bytes in memory. Reads never go past its end.
class WaveFile {
 public:
  // Null when the path is not a regular file that can be read.
  static std::unique_ptr<WaveFile> OpenPath(const std::string& path);
  static std::unique_ptr<WaveFile> OpenBytes(std::span<const std::uint8_t> bytes);
  ~WaveFile();
  WaveFile(const WaveFile&) = delete;
  WaveFile& operator=(const WaveFile&) = delete;

  // Bytes read: fewer than count at the end of the file.
  std::size_t Read(std::uint8_t* into, std::size_t count);
  void Seek(std::uint64_t offset) { position = offset; }
  std::uint64_t Position() const { return position; }
  std::uint64_t Size() const { return size; }

 private:
  WaveFile() = default;

  std::FILE* file = nullptr;  // null for bytes in memory
  std::span<const std::uint8_t> bytes;
  std::uint64_t size = 0;
  std::uint64_t position = 0;
  std::uint64_t filePosition = 0;  // where the C library's file position is
};

// Opens the file, checks that it is a RIFF "WAVE" file and reads its format record; the
// file is left open for WaveStartDataRead. On error, nothing is left open or allocated.
int WaveOpenFile(const std::string& path, std::unique_ptr<WaveFile>& file,
                 std::unique_ptr<platform::WaveFormat>& format, RiffChunk& riff);
int WaveOpenBytes(std::span<const std::uint8_t> bytes, std::unique_ptr<WaveFile>& file,
                  std::unique_ptr<platform::WaveFormat>& format, RiffChunk& riff);
// Finds the "data" chunk of the RIFF chunk and leaves the file at its start.
int WaveStartDataRead(WaveFile& file, RiffChunk& data, const RiffChunk& riff);
// Reads up to count bytes of the rest of the data chunk, whose size goes down by what is
// taken. bytesRead is 0 on error.
int WaveReadFile(WaveFile& file, std::uint32_t count, std::uint8_t* buffer, RiffChunk& data,
                 std::uint32_t& bytesRead);
// The whole wave: format record and all the sample data. On error, the outputs are empty.
int WaveLoadFile(const std::string& path, std::uint32_t& size, std::unique_ptr<platform::WaveFormat>& format,
                 std::unique_ptr<std::uint8_t[]>& data);
int WaveLoadBytes(std::span<const std::uint8_t> bytes, std::uint32_t& size,
                  std::unique_ptr<platform::WaveFormat>& format, std::unique_ptr<std::uint8_t[]>& data);
