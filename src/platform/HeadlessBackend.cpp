#include "platform/HeadlessBackend.h"

#include <algorithm>

#include "platform/Window.h"

namespace platform {

HeadlessBackend::HeadlessBackend(std::uint32_t startTime) : now(startTime) {}

OpenResult HeadlessBackend::OpenWindow(const std::string&, int, int, bool asWindow) {
  if (openFailure != OpenResult::Ok) return openFailure;
  windowOpen = true;
  windowed = asWindow;
  return OpenResult::Ok;
}

void HeadlessBackend::ShowFrame(const Surface& frame, const std::vector<Rect>& changed) {
  lastChanges = changed;
  frameWidth = frame.Width();
  frameHeight = frame.Height();
  lastFrame.resize(static_cast<std::size_t>(frameWidth) * frameHeight);
  // Row by row: a frame is shown after every drawn tick, and unoptimised builds pay dearly
  // for a pixel at a time.
  for (int y = 0; y < frameHeight; ++y) {
    const std::uint16_t* row = frame.Pixels() + static_cast<std::size_t>(y) * frame.Pitch();
    std::copy(row, row + frameWidth, lastFrame.begin() + static_cast<std::ptrdiff_t>(y) * frameWidth);
  }
  ++framesShown;
  if (frameWatcher) frameWatcher(lastFrame);
}

void HeadlessBackend::PollInput() {
  while (!pending.empty() && static_cast<std::int32_t>(now - pending.front().due) >= 0) {
    const Pending p = pending.front();
    pending.pop_front();
    PostInput(p.message, p.wParam, p.lParam);
  }
}

void HeadlessBackend::WaitInput(std::uint32_t timeoutMs) {
  // Waiting costs simulated time only: jump to the next input or to the timeout, which is
  // on the game's clock.
  timeoutMs = clock.WallWait(timeoutMs);
  if (!pending.empty()) {
    const std::uint32_t untilInput = pending.front().due - now;
    if (static_cast<std::int32_t>(untilInput) <= 0) return;
    if (untilInput < timeoutMs) {
      now += untilInput;
      return;
    }
  }
  now += timeoutMs;
}

void HeadlessBackend::ShowMessageBox(const std::string& text, const std::string& caption, bool errorIcon) {
  boxes.push_back({text, caption, errorIcon});
}

bool HeadlessBackend::ScriptedFileDialog(FileDialogKind kind, const std::string& title,
                                         std::optional<std::string>* answer) {
  const bool scripted = !dialogAnswers.empty();
  dialogCalls.push_back({kind, title, scripted});
  if (!scripted) return false;
  *answer = std::move(dialogAnswers.front());
  dialogAnswers.pop_front();
  return true;
}

void HeadlessBackend::Queue(std::uint32_t message, WParam wParam, LParam lParam, std::uint32_t delayMs) {
  std::uint32_t due = now + delayMs;
  // Input keeps its order: nothing is due before what was queued earlier.
  if (!pending.empty() && static_cast<std::int32_t>(pending.back().due - due) > 0) due = pending.back().due;
  pending.push_back({due, message, wParam, lParam});
}

void HeadlessBackend::KeyPress(std::uint32_t vk, std::uint32_t delayMs) {
  Queue(WM_KEYDOWN, vk, 1, delayMs);
  if (vk == VK_RETURN || vk == VK_BACK) Queue(WM_CHAR, vk, 1);
  Queue(WM_KEYUP, vk, static_cast<LParam>(0xC0000001u));
}

void HeadlessBackend::TypeText(const std::string& text, std::uint32_t delayMs) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    Queue(WM_CHAR, static_cast<unsigned char>(text[i]), 1, i == 0 ? delayMs : 0);
  }
}

void HeadlessBackend::MouseMove(int x, int y, std::uint32_t delayMs) {
  Queue(WM_MOUSEMOVE, 0, PackPoint(x, y), delayMs);
}

void HeadlessBackend::LeftClick(int x, int y, std::uint32_t delayMs) {
  MouseMove(x, y, delayMs);
  Queue(WM_LBUTTONDOWN, MK_LBUTTON, PackPoint(x, y));
  Queue(WM_LBUTTONUP, 0, PackPoint(x, y));
}

void HeadlessBackend::RightClick(int x, int y, std::uint32_t delayMs) {
  MouseMove(x, y, delayMs);
  Queue(WM_RBUTTONDOWN, MK_RBUTTON, PackPoint(x, y));
  Queue(WM_RBUTTONUP, 0, PackPoint(x, y));
}

}  // namespace platform
