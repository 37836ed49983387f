// Any bytes as a help file: every topic the reader finds is a zero-terminated text inside
// its room that ends in the one space the reader adds, topics are numbered without gaps,
// and the reader never reads outside the bytes it was given.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "screens/HelpFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  HelpText text;
  bool previousFound = true;
  for (int number : {0, 1, 2, 7, 40, -1}) {
    std::memset(text, 0x55, sizeof text);
    const bool found = FindHelpTopic(content, number, text);
    const std::size_t length = strnlen(text, sizeof text);
    if (length >= sizeof text) std::abort();
    if (found != (length > 0)) std::abort();
    if (found && text[length - 1] != ' ') std::abort();
    if (number >= 0 && found && !previousFound) std::abort();  // a topic without the ones before it
    if (number >= 0 && number <= 2) previousFound = found;
  }
  return 0;
}
