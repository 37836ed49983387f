#pragma once
// Reading and writing PNG files with libpng, as straight (un-premultiplied) 8-bit RGBA.
#include <string>

#include "PixelRules.h"

namespace baker {

// Any PNG (palette, grey, 16-bit, with or without alpha) is converted to 8-bit RGBA.
// On failure returns false and says why in `error`.
bool ReadPng(const std::string& path, RgbaImage& image, std::string& error);
bool WritePng(const std::string& path, const RgbaImage& image, std::string& error);

}  // namespace baker
