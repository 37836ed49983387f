#pragma once
// Screenshots: the frame as it is shown, a PNG file in the player's screenshots folder.
#include <optional>
#include <string>

namespace platform {

class Surface;

// $XDG_DATA_HOME/quarnwick/screenshots (else ~/.local/share/quarnwick/screenshots), made on
// demand; the file is named for the local time, quarnwick-YYYYMMDD-HHMMSS.png, with -2, -3,
// ... behind it for more in the same second. The path written, or nullopt with the reason.
std::optional<std::string> SaveScreenshot(const Surface& frame, std::string* error);

}  // namespace platform
