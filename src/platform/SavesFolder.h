#pragma once
// The per-user folder where saved games go, in the place the desktop's conventions give
// a program's own data.
#include <string>

namespace platform {

// $XDG_DATA_HOME/quarnwick/saves, else ~/.local/share/quarnwick/saves. The folder (with
// its parents) is made when it is not there yet. Empty when it cannot be made, or when no
// home folder is known.
std::string SavesFolder();

}  // namespace platform
