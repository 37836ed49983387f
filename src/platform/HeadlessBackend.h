#pragma once
// The backend of tests, benchmarks and the screenshot tour: a manual clock, input that
// the caller injects, frames that can be read back, and message boxes that are captured
// instead of shown.
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Backend.h"
#include "platform/FileDialog.h"
#include "platform/GameClock.h"
#include "platform/HeadlessAudio.h"
#include "platform/Surface.h"

namespace platform {

class HeadlessBackend : public Backend {
 public:
  struct CapturedBox {
    std::string text;
    std::string caption;
    bool errorIcon;
  };
  // A file dialog that the game asked for.
  struct DialogCall {
    FileDialogKind kind;
    std::string title;
    bool scripted;  // answered from the script, without showing the dialog
  };

  explicit HeadlessBackend(std::uint32_t startTime = 100000);

  std::uint32_t TickCount() override { return clock.Now(now); }
  OpenResult OpenWindow(const std::string& title, int width, int height, bool windowed) override;
  void CloseWindow() override { windowOpen = false; }
  void ShowFrame(const Surface& frame, const std::vector<Rect>& changed) override;
  void PollInput() override;
  void WaitInput(std::uint32_t timeoutMs) override;
  void ShowMessageBox(const std::string& text, const std::string& caption, bool errorIcon) override;
  void ShowSystemCursor(bool visible) override { systemCursorVisible = visible; }
  AudioDevice* Audio() override { return audioPresent ? &audio : nullptr; }
  bool ScriptedFileDialog(FileDialogKind kind, const std::string& title, std::optional<std::string>* answer) override;

  // The wall clock moves only when told to, or when the game waits for input. The game's
  // clock goes with it, three times as fast while fast-forward is held.
  void Advance(std::uint32_t ms) { now += ms; }
  void SetTime(std::uint32_t ms) { now = ms; }
  void SetFastForward(bool fast) { clock.SetFast(fast, now); }
  std::uint32_t WallClock() const { return now; }
  // Every frame put on the screen, as it comes (an empty function stops watching).
  void WatchFrames(std::function<void(const std::vector<std::uint16_t>&)> watcher) { frameWatcher = std::move(watcher); }

  // Input arrives at the given time (now, when 0 is given as delay), in order.
  void Queue(std::uint32_t message, WParam wParam, LParam lParam, std::uint32_t delayMs = 0);
  void KeyPress(std::uint32_t virtualKey, std::uint32_t delayMs = 0);  // key down, char if any
  void TypeText(const std::string& text, std::uint32_t delayMs = 0);   // char messages
  void MouseMove(int x, int y, std::uint32_t delayMs = 0);
  void LeftClick(int x, int y, std::uint32_t delayMs = 0);             // move, down, up
  void RightClick(int x, int y, std::uint32_t delayMs = 0);
  bool InputPending() const { return !pending.empty(); }

  // The next file dialog answers this at once, without being shown: a path, or nothing
  // for cancel. Answers are used in order; without one the real dialog runs, driven by
  // the injected input.
  void ScriptDialog(std::optional<std::string> answer) { dialogAnswers.push_back(std::move(answer)); }
  const std::vector<DialogCall>& DialogCalls() const { return dialogCalls; }

  // Fault injection: the window fails to open with the given result.
  void FailOpen(OpenResult result) { openFailure = result; }
  // Fault injection: the machine has no sound device at all.
  void SetAudioPresent(bool present) { audioPresent = present; }
  // The sound device, which records what it is asked (whether present or not).
  HeadlessAudio& AudioOutput() { return audio; }

  bool WindowOpen() const { return windowOpen; }
  bool Windowed() const { return windowed; }
  bool SystemCursorVisible() const { return systemCursorVisible; }
  int FramesShown() const { return framesShown; }
  // The last frame put on the (imaginary) screen, 640 x 480 pixels, row by row.
  const std::vector<std::uint16_t>& LastFrame() const { return lastFrame; }
  // The parts of the last frame that the game said had changed.
  const std::vector<Rect>& LastChanges() const { return lastChanges; }
  int FrameWidth() const { return frameWidth; }
  int FrameHeight() const { return frameHeight; }
  const std::vector<CapturedBox>& MessageBoxes() const { return boxes; }

 private:
  struct Pending {
    std::uint32_t due;
    std::uint32_t message;
    WParam wParam;
    LParam lParam;
  };

  std::uint32_t now;
  GameClock clock;
  std::function<void(const std::vector<std::uint16_t>&)> frameWatcher;
  std::deque<Pending> pending;
  std::vector<CapturedBox> boxes;
  std::deque<std::optional<std::string>> dialogAnswers;
  std::vector<DialogCall> dialogCalls;
  std::vector<Rect> lastChanges;
  std::vector<std::uint16_t> lastFrame;
  int frameWidth = 0;
  int frameHeight = 0;
  int framesShown = 0;
  bool windowOpen = false;
  bool windowed = false;
  bool systemCursorVisible = true;
  OpenResult openFailure = OpenResult::Ok;
  HeadlessAudio audio;
  bool audioPresent = true;
};

}  // namespace platform
