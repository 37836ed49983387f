#pragma once
// A PNG file of a 5-6-5 frame: 8-bit RGB, each colour widened as the frame is shown
// (0 stays 0, the top value becomes 255). The image data is stored in uncompressed deflate
// blocks, so that the game needs no compression library and writes the same bytes
// everywhere.
#include <string>

namespace platform {

class Surface;

std::string EncodePng(const Surface& frame);

}  // namespace platform
