#pragma once
// The per-user folder where saved games go, in the place the desktop's conventions give
// a program's own data.
#include <filesystem>
#include <string>

namespace platform {

// A base folder of the desktop's conventions: $VARIABLE when it is an absolute path, else
// the folder under the home folder (".local/share", ".config"). Empty when no home is known.
std::filesystem::path UserBaseFolder(const char* variable, const char* underHome);

// $XDG_DATA_HOME/quarnwick/saves, else ~/.local/share/quarnwick/saves. The folder (with
// its parents) is made when it is not there yet. Empty when it cannot be made, or when no
// home folder is known.
std::string SavesFolder();

}  // namespace platform
