// The settings reader on any bytes: it never fails, and what it writes reads back the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/Settings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  platform::Settings settings;
  std::string problem;
  settings.Read(std::string(reinterpret_cast<const char*>(data), size), &problem);
  const std::string text = settings.Text();
  platform::Settings again;
  if (!again.Read(text, &problem) || again.Text() != text) std::abort();
  return 0;
}
