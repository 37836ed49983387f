#pragma once
// Strings inside the game are Windows-1252 bytes. Typed text arrives as UTF-8 and is
// converted (characters the code page lacks are dropped); drawing converts back.
#include <string>

namespace platform {

std::string Utf8ToCp1252(const std::string& utf8);
std::string Cp1252ToUtf8(const std::string& cp1252);

}  // namespace platform
