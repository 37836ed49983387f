#include "shell/TextFormat.h"

#include <cstdarg>
#include <cstdio>

std::string Format(const char* format, ...) {
  char buffer[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  return buffer;
}
