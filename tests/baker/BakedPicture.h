#pragma once
// A picture of this build's dat/, read through the game's own bitmap reader; an empty one,
// with a test failure, when the game cannot read it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/BitmapFile.h"

inline platform::Image565 LoadBakedPicture(const std::string& name) {
  const std::filesystem::path path = std::filesystem::path(QUARNWICK_BUILD_DIR) / "dat" / name;
  auto image = platform::LoadBitmapFile(path.string());
  if (!image) {
    ADD_FAILURE() << "the game cannot read " << path;
    return {};
  }
  return *image;
}
