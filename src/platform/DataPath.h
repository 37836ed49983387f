#pragma once
// Where the game's data files are. The game names them as "dat\name.bmp": backslashes
// become slashes, and the name is looked up under the data root, the folder holding dat/
// beside the executable, else share/quarnwick beside the executable's bin/ folder (an
// installed game, wherever it was installed), else the data folder of the default prefix.
#include <string>

namespace platform {

std::string DataRoot();
// Tests and tools point the game at their own data.
void SetDataRoot(const std::string& folder);
// A path for a data file name as the game writes it; absolute names stay as they are.
std::string DataPath(const std::string& gameName);
// The folder of the running executable.
std::string ExecutableFolder();

}  // namespace platform
