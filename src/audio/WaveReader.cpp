#include "audio/WaveReader.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

using platform::WaveFormat;

namespace {

constexpr std::uint32_t kRiff = ChunkId("RIFF");
constexpr std::uint32_t kList = ChunkId("LIST");
constexpr std::uint32_t kWave = ChunkId("WAVE");
constexpr std::uint32_t kFmt = ChunkId("fmt ");
constexpr std::uint32_t kData = ChunkId("data");
constexpr std::uint32_t kPcmRecordBytes = 16;

std::uint16_t Le16(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | p[1] << 8); }

std::uint32_t Le32(const std::uint8_t* p) {
  return static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
         static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[3]) << 24;
}

std::uint64_t ChunkEnd(const RiffChunk& chunk) { return chunk.dataOffset + chunk.size + (chunk.size & 1); }

// Reads the header of the chunk at the current position; with a chunk id to find, skips
// chunks inside the parent until one has that id. The file is left at the chunk's data
// (behind the form type of a "RIFF" or "LIST" chunk).
int Descend(WaveFile& file, RiffChunk& chunk, const RiffChunk* parent, std::uint32_t find) {
  const std::uint64_t parentEnd = parent ? parent->dataOffset + parent->size : UINT64_MAX;
  for (;;) {
    const std::uint64_t at = file.Position();
    if (at > parentEnd || parentEnd - at < 8) return kWaveChunkNotFound;
    std::uint8_t header[8];
    if (file.Read(header, 8) != 8) return kWaveChunkNotFound;
    chunk = RiffChunk{};
    chunk.id = Le32(header);
    chunk.size = Le32(header + 4);
    chunk.dataOffset = at + 8;
    if (find == 0 || chunk.id == find) break;
    file.Seek(ChunkEnd(chunk));
  }
  if (chunk.id == kRiff || chunk.id == kList) {
    std::uint8_t type[4];
    if (file.Read(type, 4) != 4) return kWaveChunkNotFound;
    chunk.formType = Le32(type);
  }
  return 0;
}

void Ascend(WaveFile& file, const RiffChunk& chunk) { file.Seek(ChunkEnd(chunk)); }

int ReadFormat(WaveFile& file, const RiffChunk& riff, std::unique_ptr<WaveFormat>& format) {
  RiffChunk fmt;
  if (const int error = Descend(file, fmt, &riff, kFmt)) return error;
  if (fmt.size < kPcmRecordBytes) return kWaveNotWave;
  std::uint8_t record[kPcmRecordBytes];
  if (file.Read(record, sizeof record) != sizeof record) return kWaveFormatUnreadable;

  const std::uint16_t tag = Le16(record);
  std::uint16_t extraBytes = 0;
  // Every read stays inside the "fmt " chunk. A reader on the multimedia file functions
  // reads the count and the extra bytes straight on from the record, past a short chunk
  // into the one behind it; this one does not: a count or extra bytes that the chunk
  // does not hold make the file unreadable, and a 16-byte record has no count to read.
  //
  // A PCM format has no extra bytes. Others count them, except in the short 16-byte
  // record of older writers, which has no count and so no extra bytes.
  if (tag != platform::kWaveFormatPcm && fmt.size > kPcmRecordBytes) {
    std::uint8_t count[2];
    if (fmt.size < kPcmRecordBytes + 2 || file.Read(count, 2) != 2) return kWaveFormatUnreadable;
    extraBytes = Le16(count);
  }
  if (extraBytes != 0 && extraBytes > fmt.size - kPcmRecordBytes - 2) return kWaveNotWave;

  format.reset(new (std::nothrow) WaveFormat);
  if (!format) return kWaveOutOfMemory;
  format->formatTag = tag;
  format->channels = Le16(record + 2);
  format->samplesPerSec = Le32(record + 4);
  format->avgBytesPerSec = Le32(record + 8);
  format->blockAlign = Le16(record + 12);
  format->bitsPerSample = Le16(record + 14);
  format->extra.resize(extraBytes);
  if (extraBytes != 0 && file.Read(format->extra.data(), extraBytes) != extraBytes) return kWaveNotWave;
  Ascend(file, fmt);
  return 0;
}

int OpenWave(std::unique_ptr<WaveFile> opened, std::unique_ptr<WaveFile>& file, std::unique_ptr<WaveFormat>& format,
             RiffChunk& riff) {
  file.reset();
  format.reset();
  if (!opened) return kWaveCannotOpen;
  int error = Descend(*opened, riff, nullptr, 0);
  if (error == 0 && (riff.id != kRiff || riff.formType != kWave)) error = kWaveNotWave;
  if (error == 0) error = ReadFormat(*opened, riff, format);
  if (error != 0) {
    format.reset();
    return error;
  }
  file = std::move(opened);
  return 0;
}

int LoadWave(int opened, std::unique_ptr<WaveFile>& file, const RiffChunk& riff, std::uint32_t& size,
             std::unique_ptr<WaveFormat>& format, std::unique_ptr<std::uint8_t[]>& data) {
  int error = opened;
  RiffChunk chunk;
  if (error == 0) error = WaveStartDataRead(*file, chunk, riff);
  // A data chunk that claims more than the rest of the file is refused before anything
  // is allocated for it.
  if (error == 0 && chunk.size > file->Size() - file->Position()) error = kWaveDataShort;
  if (error == 0) {
    data.reset(new (std::nothrow) std::uint8_t[chunk.size == 0 ? 1 : chunk.size]);
    if (!data) error = kWaveOutOfMemory;
  }
  if (error == 0) error = WaveReadFile(*file, chunk.size, data.get(), chunk, size);
  file.reset();
  if (error != 0) {
    size = 0;
    data.reset();
    format.reset();
  }
  return error;
}

}  // namespace

std::unique_ptr<WaveFile> WaveFile::OpenPath(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return nullptr;
  const std::uintmax_t length = std::filesystem::file_size(path, error);
  if (error) return nullptr;
  std::FILE* opened = std::fopen(path.c_str(), "rb");
  if (!opened) return nullptr;
  std::unique_ptr<WaveFile> wave(new (std::nothrow) WaveFile);
  if (!wave) {
    std::fclose(opened);
    return nullptr;
  }
  wave->file = opened;
  wave->size = length;
  return wave;
}

std::unique_ptr<WaveFile> WaveFile::OpenBytes(std::span<const std::uint8_t> bytes) {
  std::unique_ptr<WaveFile> wave(new (std::nothrow) WaveFile);
  if (!wave) return nullptr;
  wave->bytes = bytes;
  wave->size = bytes.size();
  return wave;
}

WaveFile::~WaveFile() {
  if (file) std::fclose(file);
}

std::size_t WaveFile::Read(std::uint8_t* into, std::size_t count) {
  if (position >= size) return 0;
  if (count > size - position) count = static_cast<std::size_t>(size - position);
  std::size_t got = 0;
  if (file) {
    if (filePosition != position) {
      if (fseeko(file, static_cast<off_t>(position), SEEK_SET) != 0) return 0;
      filePosition = position;
    }
    got = std::fread(into, 1, count, file);
    filePosition += got;
  } else {
    std::copy_n(bytes.data() + position, count, into);
    got = count;
  }
  position += got;
  return got;
}

int WaveOpenFile(const std::string& path, std::unique_ptr<WaveFile>& file, std::unique_ptr<WaveFormat>& format,
                 RiffChunk& riff) {
  return OpenWave(WaveFile::OpenPath(path), file, format, riff);
}

int WaveOpenBytes(std::span<const std::uint8_t> bytes, std::unique_ptr<WaveFile>& file,
                  std::unique_ptr<WaveFormat>& format, RiffChunk& riff) {
  return OpenWave(WaveFile::OpenBytes(bytes), file, format, riff);
}

int WaveStartDataRead(WaveFile& file, RiffChunk& data, const RiffChunk& riff) {
  file.Seek(riff.dataOffset + 4);  // behind the form type: the first chunk inside
  return Descend(file, data, &riff, kData);
}

int WaveReadFile(WaveFile& file, std::uint32_t count, std::uint8_t* buffer, RiffChunk& data,
                 std::uint32_t& bytesRead) {
  bytesRead = 0;
  if (count > data.size) count = data.size;
  data.size -= count;
  std::uint32_t done = 0;
  while (done < count) {
    const std::size_t got = file.Read(buffer + done, count - done);
    if (got == 0) return kWaveDataShort;
    done += static_cast<std::uint32_t>(got);
  }
  bytesRead = count;
  return 0;
}

int WaveLoadFile(const std::string& path, std::uint32_t& size, std::unique_ptr<WaveFormat>& format,
                 std::unique_ptr<std::uint8_t[]>& data) {
  size = 0;
  data.reset();
  std::unique_ptr<WaveFile> file;
  RiffChunk riff;
  const int opened = WaveOpenFile(path, file, format, riff);
  return LoadWave(opened, file, riff, size, format, data);
}

int WaveLoadBytes(std::span<const std::uint8_t> bytes, std::uint32_t& size, std::unique_ptr<WaveFormat>& format,
                  std::unique_ptr<std::uint8_t[]>& data) {
  size = 0;
  data.reset();
  std::unique_ptr<WaveFile> file;
  RiffChunk riff;
  const int opened = WaveOpenBytes(bytes, file, format, riff);
  return LoadWave(opened, file, riff, size, format, data);
}
