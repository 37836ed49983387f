#pragma once
// Where the game's data files are. The game names them as "dat\name.bmp": backslashes
// become slashes, and the name is looked up under the data root, the folder holding dat/
// beside the executable, else the installed data folder as seen from the executable's own
// folder (an installed or unpacked game, wherever it is), else the data folder of the
// configured prefix.
#include <string>
#include <vector>

namespace platform {

std::string DataRoot();
// The folders looked in for dat/, in their order.
std::vector<std::string> DataRootCandidates();
// False when the data root has no dat/ folder: the game cannot run.
bool DataRootHoldsData();
// Tests and tools point the game at their own data.
void SetDataRoot(const std::string& folder);
// A path for a data file name as the game writes it; absolute names stay as they are.
std::string DataPath(const std::string& gameName);
// The folder of the running executable.
std::string ExecutableFolder();

}  // namespace platform
