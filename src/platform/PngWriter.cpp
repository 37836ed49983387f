#include "platform/PngWriter.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/Surface.h"

namespace platform {
namespace {

std::uint32_t Crc32(const std::string& bytes, std::size_t from) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> t{};
    for (std::uint32_t n = 0; n < 256; ++n) {
      std::uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  std::uint32_t crc = 0xFFFFFFFFu;
  for (std::size_t i = from; i < bytes.size(); ++i) crc = table[(crc ^ static_cast<std::uint8_t>(bytes[i])) & 0xFF] ^ (crc >> 8);
  return crc ^ 0xFFFFFFFFu;
}

void Put32(std::string& out, std::uint32_t v) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>((v >> shift) & 0xFF));
}

void Chunk(std::string& out, const char* type, const std::string& data) {
  Put32(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = out.size();
  out += type;
  out += data;
  Put32(out, Crc32(out, start));
}

// A zlib stream of stored deflate blocks, at most 65535 bytes each.
std::string StoredZlib(const std::string& raw) {
  std::string out = "\x78\x01";
  std::uint32_t a = 1, b = 0;
  for (unsigned char c : raw) {
    a = (a + c) % 65521;
    b = (b + a) % 65521;
  }
  std::size_t at = 0;
  do {
    const std::size_t length = std::min<std::size_t>(raw.size() - at, 65535);
    const bool last = at + length == raw.size();
    out.push_back(last ? 1 : 0);
    out.push_back(static_cast<char>(length & 0xFF));
    out.push_back(static_cast<char>(length >> 8));
    out.push_back(static_cast<char>(~length & 0xFF));
    out.push_back(static_cast<char>((~length >> 8) & 0xFF));
    out.append(raw, at, length);
    at += length;
  } while (at < raw.size());
  Put32(out, (b << 16) | a);
  return out;
}

}  // namespace

std::string EncodePng(const Surface& frame) {
  const int w = frame.Width(), h = frame.Height();
  std::string header;
  Put32(header, static_cast<std::uint32_t>(w));
  Put32(header, static_cast<std::uint32_t>(h));
  header += std::string("\x08\x02\x00\x00\x00", 5);  // 8 bits, RGB, deflate, no filter, no interlace
  std::string raw;
  raw.reserve(static_cast<std::size_t>(h) * (3 * w + 1));
  for (int y = 0; y < h; ++y) {
    raw.push_back(0);  // the row's filter: none
    for (int x = 0; x < w; ++x) {
      const std::uint16_t p = frame.At(x, y);
      raw.push_back(static_cast<char>(Red8(p)));
      raw.push_back(static_cast<char>(Green8(p)));
      raw.push_back(static_cast<char>(Blue8(p)));
    }
  }
  std::string png = "\x89PNG\r\n\x1a\n";
  Chunk(png, "IHDR", header);
  Chunk(png, "IDAT", StoredZlib(raw));
  Chunk(png, "IEND", "");
  return png;
}

}  // namespace platform
