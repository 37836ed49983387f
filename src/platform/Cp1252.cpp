#include "platform/Cp1252.h"

#include <cstdint>

namespace platform {
namespace {

// Code points of bytes 0x80..0x9F; 0 where the code page has no character.
constexpr std::uint16_t kHigh[32] = {
    0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0, 0x017D, 0, 0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};

std::uint32_t CodePointOf(unsigned char byte) {
  if (byte >= 0x80 && byte < 0xA0) return kHigh[byte - 0x80];
  return byte;
}

int ByteFor(std::uint32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<int>(codePoint);
  for (int i = 0; i < 32; ++i) {
    if (kHigh[i] != 0 && kHigh[i] == codePoint) return 0x80 + i;
  }
  return -1;
}

void AppendUtf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace

std::string Utf8ToCp1252(const std::string& utf8) {
  std::string out;
  std::size_t i = 0;
  while (i < utf8.size()) {
    const unsigned char lead = static_cast<unsigned char>(utf8[i]);
    int extra = 0;
    std::uint32_t cp = lead;
    if (lead >= 0xF0) { extra = 3; cp = lead & 0x07; }
    else if (lead >= 0xE0) { extra = 2; cp = lead & 0x0F; }
    else if (lead >= 0xC0) { extra = 1; cp = lead & 0x1F; }
    else if (lead >= 0x80) { ++i; continue; }  // a stray continuation byte
    ++i;
    bool complete = true;
    for (int k = 0; k < extra; ++k, ++i) {
      if (i >= utf8.size() || (static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80) {
        complete = false;
        break;
      }
      cp = (cp << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    }
    if (!complete) continue;
    const int byte = ByteFor(cp);
    if (byte >= 0) out += static_cast<char>(byte);
  }
  return out;
}

std::string Cp1252ToUtf8(const std::string& cp1252) {
  std::string out;
  out.reserve(cp1252.size());
  for (unsigned char byte : cp1252) {
    const std::uint32_t cp = CodePointOf(byte);
    if (cp != 0) AppendUtf8(out, cp);
  }
  return out;
}

}  // namespace platform
