#pragma once
// What differs between the real game and the headless runs: where frames go, where
// input comes from, what time it is, and how a message box is shown. Everything else of
// the platform layer (messages, surfaces, bitmaps, text) is shared by both backends.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Messages.h"

namespace platform {

class AudioDevice;
class Surface;
struct Rect;
enum class FileDialogKind;  // FileDialog.h

// Why a window could not be opened, by the step of the display set-up that failed.
enum class OpenResult {
  Ok,
  NoWindow,       // the window itself could not be created
  NoVideo,        // the video system could not be reached
  NoCooperation,  // no renderer for the window
  NoDisplayMode,  // the full-screen mode could not be set
  NoSurface,      // no frame texture
};

class Backend {
 public:
  virtual ~Backend() = default;

  // Milliseconds since the system started, 32-bit, wrapping.
  virtual std::uint32_t TickCount() = 0;

  virtual OpenResult OpenWindow(const std::string& title, int width, int height, bool windowed) = 0;
  virtual void CloseWindow() = 0;
  // Shows a finished 640 x 480 frame in the window; only the changed parts differ from
  // the frame shown before (all of the frame when nothing was shown yet).
  virtual void ShowFrame(const Surface& frame, const std::vector<Rect>& changed) = 0;

  // Hands every waiting device event to PostInput (see Window.h); never blocks.
  virtual void PollInput() = 0;
  // Blocks until device input arrives or timeoutMs have passed.
  virtual void WaitInput(std::uint32_t timeoutMs) = 0;

  // A box with an OK button, and the error icon when asked.
  virtual void ShowMessageBox(const std::string& text, const std::string& caption, bool errorIcon) = 0;
  virtual void ShowSystemCursor(bool visible) = 0;
  // The last error of the underlying system, for the log.
  virtual std::string LastError() { return {}; }
  // The sound device, owned by the backend; null when there is none.
  virtual AudioDevice* Audio() { return nullptr; }
  // A backend for runs without a person at the keyboard may answer file dialogs from a
  // script: true with the answer in *answer (a path, or nothing for cancel), and then no
  // dialog is shown. Asked at the start of every file dialog.
  virtual bool ScriptedFileDialog(FileDialogKind, const std::string& /*title*/, std::optional<std::string>* /*answer*/) {
    return false;
  }
};

}  // namespace platform
