#pragma once
// printf-style formatting into a std::string, for the game's messages. Names go in as
// arguments, never as the format, so that a '%' in a creature's name shows as it is.
#include <string>

std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));
