#pragma once
// The real game's backend: an SDL window that shows the 640 x 480 frame scaled to fit
// (full screen on the desktop's own resolution, or a resizable window at a whole-number
// scale), keyboard and mouse input, the system clock and system message boxes.
#include <memory>
#include <string>

#include "platform/Backend.h"

namespace platform {

class Settings;

class SdlBackend : public Backend {
 public:
  SdlBackend();
  ~SdlBackend() override;

  std::uint32_t TickCount() override;
  OpenResult OpenWindow(const std::string& title, int width, int height, bool windowed) override;
  void CloseWindow() override;
  void ShowFrame(const Surface& frame, const std::vector<Rect>& changed) override;
  void PollInput() override;
  void WaitInput(std::uint32_t timeoutMs) override;
  void ShowMessageBox(const std::string& text, const std::string& caption, bool errorIcon) override;
  void ShowSystemCursor(bool visible) override;
  std::string LastError() override;
  AudioDevice* Audio() override;
  // The player's settings: the window as it was last left, the loudness of effects and
  // music. The backend keeps the window's in them as the player changes it.
  void UseSettings(Settings* settings);
  // What the window's title says now ("Quarnwick", " x3" while fast-forward is held, a notice).
  std::string WindowTitle() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl;
};

}  // namespace platform
