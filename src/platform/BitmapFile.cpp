#include "platform/BitmapFile.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/AtomicFile.h"
#include "platform/Surface.h"

namespace platform {
namespace {

constexpr std::int64_t kMaxPixels = 64LL * 1024 * 1024;
// Run lengths let a few bytes stand for a whole picture, so the file's size does not
// bound them; the game's pictures are far smaller than this.
constexpr std::int64_t kMaxRunPixels = 4LL * 1024 * 1024;
constexpr std::uint32_t kRgb = 0;
constexpr std::uint32_t kRle8 = 1;
constexpr std::uint32_t kRle4 = 2;
constexpr std::uint32_t kBitFields = 3;

class ByteReader {
 public:
  explicit ByteReader(std::span<const std::uint8_t> b) : bytes(b) {}
  bool Has(std::size_t offset, std::size_t count) const {
    return offset <= bytes.size() && count <= bytes.size() - offset;
  }
  std::uint32_t U16(std::size_t o) const { return bytes[o] | (bytes[o + 1] << 8); }
  std::uint32_t U32(std::size_t o) const {
    return bytes[o] | (bytes[o + 1] << 8) | (bytes[o + 2] << 16) | (static_cast<std::uint32_t>(bytes[o + 3]) << 24);
  }
  std::uint8_t At(std::size_t o) const { return bytes[o]; }

 private:
  std::span<const std::uint8_t> bytes;
};

struct Rgb {
  std::uint8_t r, g, b;
};

// One channel of a bit-field mask: where it sits and how wide it is.
struct Channel {
  std::uint32_t mask = 0;
  int shift = 0;
  int bits = 0;
  explicit Channel(std::uint32_t m) : mask(m) {
    if (m == 0) return;
    while (!((m >> shift) & 1)) ++shift;
    while (shift + bits < 32 && ((m >> (shift + bits)) & 1)) ++bits;
  }
  std::uint8_t Expand(std::uint32_t value) const {
    if (bits == 0) return 0;
    std::uint32_t v = (value & mask) >> shift;
    if (bits >= 8) return static_cast<std::uint8_t>(v >> (bits - 8));
    // Replicate the high bits into the low ones, as an 8-bit expansion does.
    std::uint32_t out = 0;
    for (int filled = 0; filled < 8; filled += bits) out = (out << bits) | v;
    return static_cast<std::uint8_t>(out >> (((8 + bits - 1) / bits) * bits - 8));
  }
};

struct Header {
  std::int64_t width = 0;
  std::int64_t height = 0;  // positive: bottom-up
  int bitCount = 0;
  std::uint32_t compression = kRgb;
  std::uint32_t imageSize = 0;  // bytes of pixel data; 0 when the file does not say
  std::size_t paletteOffset = 0;
  std::size_t paletteEntrySize = 4;
  std::uint32_t paletteCount = 0;
  std::uint32_t masks[3] = {0, 0, 0};
  std::size_t pixelOffset = 0;
};

std::optional<Header> ReadHeader(const ByteReader& in) {
  if (!in.Has(0, 18) || in.U16(0) != 0x4D42) return std::nullopt;  // "BM"
  Header h;
  h.pixelOffset = in.U32(10);
  const std::uint32_t infoSize = in.U32(14);
  if (infoSize == 12) {  // the old core header: 16-bit sizes, 3-byte palette entries
    if (!in.Has(14, 12)) return std::nullopt;
    h.width = in.U16(18);
    h.height = static_cast<std::int16_t>(in.U16(20));
    h.bitCount = static_cast<int>(in.U16(24));
    h.paletteEntrySize = 3;
  } else if (infoSize >= 40 && infoSize <= 1024) {
    if (!in.Has(14, infoSize)) return std::nullopt;
    h.width = static_cast<std::int32_t>(in.U32(18));
    h.height = static_cast<std::int32_t>(in.U32(22));
    h.bitCount = static_cast<int>(in.U16(28));
    h.compression = in.U32(30);
    h.imageSize = in.U32(34);
    h.paletteCount = in.U32(46);
    if (h.compression == kBitFields) {
      // Masks follow a 40-byte header, or sit inside a larger one at the same place.
      if (!in.Has(54, 12)) return std::nullopt;
      for (int i = 0; i < 3; ++i) h.masks[i] = in.U32(54 + 4 * i);
    }
  } else {
    return std::nullopt;
  }
  h.paletteOffset = 14 + infoSize + ((h.compression == kBitFields && infoSize == 40) ? 12 : 0);
  return h;
}

bool ValidShape(const Header& h) {
  const std::int64_t rows = h.height < 0 ? -h.height : h.height;
  if (h.width <= 0 || rows <= 0 || h.width * rows > kMaxPixels) return false;
  // Run lengths are written bottom-up only.
  const bool runs = h.height > 0 && ((h.bitCount == 4 && h.compression == kRle4) || (h.bitCount == 8 && h.compression == kRle8));
  switch (h.bitCount) {
    case 4: case 8: return h.compression == kRgb || runs;
    case 1: case 24: return h.compression == kRgb;
    case 16: case 32: return h.compression == kRgb || h.compression == kBitFields;
    default: return false;
  }
}

std::optional<std::vector<Rgb>> ReadPalette(const ByteReader& in, const Header& h) {
  std::vector<Rgb> palette;
  if (h.bitCount > 8) return palette;
  std::uint32_t count = h.paletteCount == 0 ? (1u << h.bitCount) : h.paletteCount;
  if (count > 256) count = 256;
  if (!in.Has(h.paletteOffset, count * h.paletteEntrySize)) return std::nullopt;
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::size_t o = h.paletteOffset + i * h.paletteEntrySize;
    palette.push_back({in.At(o + 2), in.At(o + 1), in.At(o)});
  }
  palette.resize(256, Rgb{0, 0, 0});  // indices past the table show black
  return palette;
}

// The palette indices of a picture compressed with run lengths, top row first. A pair of
// bytes (n > 0, v) repeats v n times (with 4 bits, v's two halves in turn); a 0 escapes:
// 0 ends the row, 1 ends the picture, 2 moves right and up by the next two bytes, and
// n >= 3 gives n literal indices, padded to an even number of bytes. Pixels that no run
// reaches keep index 0; runs past the right edge are clipped; every read stays inside
// [at, end).
std::vector<std::uint8_t> DecodeRuns(const ByteReader& in, std::size_t at, std::size_t end, const Header& h, int width,
                                     int height) {
  std::vector<std::uint8_t> indices(static_cast<std::size_t>(width) * height, 0);
  const bool nibbles = h.bitCount == 4;
  int x = 0, y = 0;  // y counts rows from the bottom, as the file stores them
  auto put = [&](std::uint8_t index) {
    if (x >= width) return;
    indices[static_cast<std::size_t>(height - 1 - y) * width + x] = index;
    ++x;
  };
  while (y < height && end - at >= 2) {
    const int count = in.At(at), value = in.At(at + 1);
    at += 2;
    if (count > 0) {
      for (int i = 0; i < count; ++i) put(nibbles ? (i % 2 == 0 ? value >> 4 : value & 0x0F) : value);
    } else if (value == 0) {
      x = 0;
      ++y;
    } else if (value == 1) {
      break;
    } else if (value == 2) {
      if (end - at < 2) break;
      x = std::min(x + in.At(at), width);
      y += in.At(at + 1);
      at += 2;
    } else {
      const std::size_t bytes = nibbles ? (value + 1) / 2 : value;
      if (end - at < bytes) break;
      for (int i = 0; i < value; ++i) {
        const int byte = in.At(at + (nibbles ? i / 2 : i));
        put(nibbles ? (i % 2 == 0 ? byte >> 4 : byte & 0x0F) : byte);
      }
      at += std::min(end - at, bytes + bytes % 2);
    }
  }
  return indices;
}

}  // namespace

std::optional<Image565> DecodeBitmap(std::span<const std::uint8_t> bytes) {
  const ByteReader in(bytes);
  const auto header = ReadHeader(in);
  if (!header || !ValidShape(*header)) return std::nullopt;
  const Header& h = *header;
  const auto palette = ReadPalette(in, h);
  if (!palette) return std::nullopt;

  const int width = static_cast<int>(h.width);
  const int height = static_cast<int>(h.height < 0 ? -h.height : h.height);
  const std::size_t stride = ((static_cast<std::size_t>(width) * h.bitCount + 31) / 32) * 4;
  const bool runs = h.compression == kRle8 || h.compression == kRle4;
  std::vector<std::uint8_t> runIndices;
  if (runs) {
    if (!in.Has(h.pixelOffset, 0) || static_cast<std::int64_t>(width) * height > kMaxRunPixels) return std::nullopt;
    std::size_t end = bytes.size();
    if (h.imageSize != 0 && h.imageSize < end - h.pixelOffset) end = h.pixelOffset + h.imageSize;
    runIndices = DecodeRuns(in, h.pixelOffset, end, h, width, height);
  } else if (!in.Has(h.pixelOffset, stride * height)) {
    return std::nullopt;
  }

  std::uint32_t defaultMasks[3] = {0x7C00, 0x03E0, 0x001F};
  if (h.bitCount == 32) {
    defaultMasks[0] = 0xFF0000; defaultMasks[1] = 0xFF00; defaultMasks[2] = 0xFF;
  }
  const bool fields = h.compression == kBitFields;
  const Channel red(fields ? h.masks[0] : defaultMasks[0]);
  const Channel green(fields ? h.masks[1] : defaultMasks[1]);
  const Channel blue(fields ? h.masks[2] : defaultMasks[2]);

  Image565 image;
  image.width = width;
  image.height = height;
  image.pixels.resize(static_cast<std::size_t>(width) * height);
  for (int row = 0; row < height; ++row) {
    const int fileRow = h.height > 0 ? height - 1 - row : row;
    const std::size_t base = h.pixelOffset + stride * fileRow;
    std::uint16_t* out = image.pixels.data() + static_cast<std::size_t>(row) * width;
    for (int x = 0; x < width; ++x) {
      Rgb c{0, 0, 0};
      switch (h.bitCount) {
        case 1: case 4: case 8: {
          if (runs) {
            c = (*palette)[runIndices[static_cast<std::size_t>(row) * width + x]];
            break;
          }
          const std::size_t bit = static_cast<std::size_t>(x) * h.bitCount;
          const int shift = 8 - h.bitCount - static_cast<int>(bit % 8);
          c = (*palette)[(in.At(base + bit / 8) >> shift) & ((1 << h.bitCount) - 1)];
          break;
        }
        case 16: {
          const std::uint32_t v = in.U16(base + 2 * x);
          c = {red.Expand(v), green.Expand(v), blue.Expand(v)};
          break;
        }
        case 24:
          c = {in.At(base + 3 * x + 2), in.At(base + 3 * x + 1), in.At(base + 3 * x)};
          break;
        case 32: {
          const std::uint32_t v = in.U32(base + 4 * x);
          c = {red.Expand(v), green.Expand(v), blue.Expand(v)};
          break;
        }
      }
      out[x] = Rgb565(c.r, c.g, c.b);
    }
  }
  return image;
}

std::optional<Image565> LoadBitmapFile(const std::string& path) {
  // A folder or an unreadable file is no picture.
  std::string content;
  if (!ReadWholeFile(path, &content, nullptr)) return std::nullopt;
  const std::vector<std::uint8_t> bytes(content.begin(), content.end());
  return DecodeBitmap(bytes);
}

}  // namespace platform
