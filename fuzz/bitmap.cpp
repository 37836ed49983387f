// Any bytes as a bitmap file: the reader either decodes an image whose size matches its
// pixels or refuses the input, and never reads outside the bytes it was given.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/BitmapFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto image = platform::DecodeBitmap(std::span<const std::uint8_t>(data, size));
  if (image) {
    if (image->width <= 0 || image->height <= 0) std::abort();
    if (image->pixels.size() != static_cast<std::size_t>(image->width) * image->height) std::abort();
  }
  return 0;
}
