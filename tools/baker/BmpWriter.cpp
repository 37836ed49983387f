#include "BmpWriter.h"

namespace baker {
namespace {

void Put16(std::vector<std::uint8_t>& out, std::size_t at, std::uint32_t v) {
  out[at] = static_cast<std::uint8_t>(v);
  out[at + 1] = static_cast<std::uint8_t>(v >> 8);
}

void Put32(std::vector<std::uint8_t>& out, std::size_t at, std::uint32_t v) {
  for (int i = 0; i < 4; ++i) out[at + i] = static_cast<std::uint8_t>(v >> (8 * i));
}

}  // namespace

std::vector<std::uint8_t> EncodeBmp24(const RgbImage& image) {
  const std::size_t stride = BmpRowStride(image.width);
  const std::size_t pixelBytes = stride * static_cast<std::size_t>(image.height);
  std::vector<std::uint8_t> out(kBmpHeaderSize + pixelBytes, 0);

  // File header.
  out[0] = 'B';
  out[1] = 'M';
  Put32(out, 2, static_cast<std::uint32_t>(out.size()));
  Put32(out, 10, static_cast<std::uint32_t>(kBmpHeaderSize));
  // Info header. A fixed resolution of 72 dpi (2835 pixels per metre) keeps the output
  // the same on every machine.
  Put32(out, 14, 40);
  Put32(out, 18, static_cast<std::uint32_t>(image.width));
  Put32(out, 22, static_cast<std::uint32_t>(image.height));  // positive: bottom-up
  Put16(out, 26, 1);                                         // planes
  Put16(out, 28, 24);                                        // bits per pixel
  Put32(out, 30, 0);                                         // no compression
  Put32(out, 34, static_cast<std::uint32_t>(pixelBytes));
  Put32(out, 38, 2835);
  Put32(out, 42, 2835);
  Put32(out, 46, 0);  // no palette
  Put32(out, 50, 0);

  for (int y = 0; y < image.height; ++y) {
    const std::size_t row = kBmpHeaderSize + stride * static_cast<std::size_t>(image.height - 1 - y);
    for (int x = 0; x < image.width; ++x) {
      const Rgb& p = image.pixels[static_cast<std::size_t>(y) * image.width + x];
      out[row + 3 * x] = p.b;
      out[row + 3 * x + 1] = p.g;
      out[row + 3 * x + 2] = p.r;
    }
  }
  return out;
}

}  // namespace baker
