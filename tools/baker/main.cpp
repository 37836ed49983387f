// baker MODE WIDTH HEIGHT IN.png OUT.bmp
// Turns a rendered picture into the 24-bit bitmap the game reads. MODE is opaque, keyed or
// additive; WIDTH and HEIGHT are the size the manifest asks for, checked against the PNG.
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "BmpWriter.h"
#include "PixelRules.h"
#include "PngFile.h"

namespace {

int Fail(const std::string& message) {
  std::fprintf(stderr, "baker: %s\n", message.c_str());
  return 1;
}

bool ParseInt(std::string_view text, int& value) {
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size() && value > 0;
}

// Writes beside the target and renames, so that a failed bake never leaves a partial
// file that looks up to date.
bool WriteFileAtomically(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes,
                         std::string& error) {
  std::error_code ec;
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ec);
  if (ec) {
    error = path.parent_path().string() + ": " + ec.message();
    return false;
  }
  std::filesystem::path temporary = path;
  temporary += ".part";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush()) {
      error = temporary.string() + ": cannot write";
      return false;
    }
  }
  std::filesystem::rename(temporary, path, ec);
  if (ec) {
    error = path.string() + ": " + ec.message();
    std::filesystem::remove(temporary, ec);
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    return Fail("usage: baker opaque|keyed|additive WIDTH HEIGHT IN.png OUT.bmp");
  }
  const auto mode = baker::ParseMode(argv[1]);
  if (!mode) return Fail(std::string("bad mode '") + argv[1] + "' (opaque, keyed or additive)");
  int width = 0;
  int height = 0;
  if (!ParseInt(argv[2], width) || !ParseInt(argv[3], height)) {
    return Fail(std::string("bad size '") + argv[2] + " " + argv[3] + "'");
  }
  baker::RgbaImage rendered;
  std::string error;
  if (!baker::ReadPng(argv[4], rendered, error)) return Fail(error);
  if (rendered.width != width || rendered.height != height) {
    return Fail(std::string(argv[4]) + ": rendered at " + std::to_string(rendered.width) + " x " +
                std::to_string(rendered.height) + ", expected " + std::to_string(width) + " x " +
                std::to_string(height));
  }
  const auto bytes = baker::EncodeBmp24(baker::BakeImage(*mode, rendered));
  if (!WriteFileAtomically(argv[5], bytes, error)) return Fail(error);
  return 0;
}
