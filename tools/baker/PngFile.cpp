#include "PngFile.h"

#include <png.h>

#include <cstring>

namespace baker {

bool ReadPng(const std::string& path, RgbaImage& image, std::string& error) {
  png_image png;
  std::memset(&png, 0, sizeof png);
  png.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&png, path.c_str())) {
    error = path + ": " + png.message;
    return false;
  }
  png.format = PNG_FORMAT_RGBA;
  std::vector<Rgba> pixels(static_cast<std::size_t>(png.width) * png.height);
  static_assert(sizeof(Rgba) == 4);
  if (!png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr)) {
    error = path + ": " + png.message;
    png_image_free(&png);
    return false;
  }
  image.width = static_cast<int>(png.width);
  image.height = static_cast<int>(png.height);
  image.pixels = std::move(pixels);
  return true;
}

bool WritePng(const std::string& path, const RgbaImage& image, std::string& error) {
  png_image png;
  std::memset(&png, 0, sizeof png);
  png.version = PNG_IMAGE_VERSION;
  png.width = static_cast<png_uint_32>(image.width);
  png.height = static_cast<png_uint_32>(image.height);
  png.format = PNG_FORMAT_RGBA;
  if (!png_image_write_to_file(&png, path.c_str(), 0, image.pixels.data(), 0, nullptr)) {
    error = path + ": " + png.message;
    return false;
  }
  return true;
}

}  // namespace baker
