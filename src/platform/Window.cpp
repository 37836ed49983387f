#include "platform/Window.h"

#include <cstdio>
#include <deque>
#include <limits>
#include <map>

#include "platform/FrameUploader.h"

namespace platform {
namespace {

struct Timer {
  std::uint32_t interval = kShortestTimerInterval;
  std::uint32_t lastFired = 0;
};

// All state of the one main window and its queue.
struct WindowState {
  Backend* backend = nullptr;
  WindowProc procedure = nullptr;
  bool exists = false;
  bool destroying = false;  // WM_DESTROY is under way: a second destroy does nothing
  bool invalid = false;
  bool quitPosted = false;
  int quitCode = 0;
  std::deque<Message> posted;
  std::map<std::uintptr_t, Timer> timers;
};

WindowState& State() {
  static WindowState state;
  return state;
}

bool DueTimer(std::uintptr_t* id) {
  WindowState& s = State();
  if (!s.exists) return false;
  const std::uint32_t now = GetTickCount();
  for (auto& [timerId, timer] : s.timers) {
    if (now - timer.lastFired >= timer.interval) {
      *id = timerId;
      return true;
    }
  }
  return false;
}

void PollBackend() {
  if (State().backend) State().backend->PollInput();
}

}  // namespace

void InstallBackend(Backend* backend) {
  WindowState& s = State();
  s = WindowState{};
  s.backend = backend;
  ResetFrameUploader();
}

Backend* CurrentBackend() { return State().backend; }

std::uint32_t GetTickCount() { return State().backend ? State().backend->TickCount() : 0; }

void SetWindowProcedure(WindowProc procedure) { State().procedure = procedure; }
WindowProc GetWindowProcedure() { return State().procedure; }

WindowHandle CreateMainWindow(const std::string& title, int width, int height, bool windowed,
                              OpenResult* result) {
  WindowState& s = State();
  const OpenResult opened = s.backend ? s.backend->OpenWindow(title, width, height, windowed) : OpenResult::NoWindow;
  if (result) *result = opened;
  if (opened != OpenResult::Ok) return 0;
  s.exists = true;
  // Showing the window activates it.
  SendMessage(kMainWindow, WM_ACTIVATE, 1, 0);
  return kMainWindow;
}

bool WindowExists() { return State().exists; }

bool DestroyWindow(WindowHandle window) {
  WindowState& s = State();
  if (window != kMainWindow || !s.exists || s.destroying) return false;
  s.destroying = true;
  SendMessage(kMainWindow, WM_DESTROY, 0, 0);
  s.destroying = false;
  s.exists = false;
  s.invalid = false;
  s.timers.clear();
  s.posted.clear();
  if (s.backend) s.backend->CloseWindow();
  return true;
}

bool PeekMessage(Message* out) {
  PollBackend();
  WindowState& s = State();
  std::uintptr_t timerId = 0;
  if (!s.posted.empty()) {
    *out = s.posted.front();
  } else if (s.quitPosted) {
    *out = Message{0, WM_QUIT, static_cast<WParam>(s.quitCode), 0};
  } else if (s.exists && s.invalid) {
    *out = Message{kMainWindow, WM_PAINT, 0, 0};
  } else if (DueTimer(&timerId)) {
    *out = Message{kMainWindow, WM_TIMER, timerId, 0};
  } else {
    return false;
  }
  return true;
}

bool GetMessage(Message* out) {
  if (!PeekMessage(out)) {
    *out = Message{};  // nothing waits: a null message, which dispatches to nobody
    return true;
  }
  WindowState& s = State();
  if (!s.posted.empty()) {
    s.posted.pop_front();
    return true;
  }
  if (out->message == WM_QUIT) {
    s.quitPosted = false;
    return false;
  }
  if (out->message == WM_TIMER) s.timers[out->wParam].lastFired = GetTickCount();
  // WM_PAINT stays until something validates the window.
  return true;
}

LResult DispatchMessage(const Message& message) {
  if (message.window == 0 || message.message == 0) return 0;
  return SendMessage(message.window, message.message, message.wParam, message.lParam);
}

bool PostMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (window != kMainWindow || !State().exists) return false;
  State().posted.push_back(Message{window, message, wParam, lParam});
  return true;
}

LResult SendMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  WindowProc procedure = State().procedure;
  if (!procedure) return 0;
  return procedure(window, message, wParam, lParam);
}

void PostQuitMessage(int exitCode) {
  State().quitPosted = true;
  State().quitCode = exitCode;
}

void PostInput(std::uint32_t message, WParam wParam, LParam lParam) {
  PostMessage(kMainWindow, message, wParam, lParam);
}

void InvalidateRect(WindowHandle window) {
  if (window == kMainWindow && State().exists) State().invalid = true;
}

void ValidateRect(WindowHandle window) {
  if (window == kMainWindow) State().invalid = false;
}

bool SetTimer(WindowHandle window, std::uintptr_t id, std::uint32_t intervalMs) {
  if (window != kMainWindow || !State().exists) return false;
  Timer timer;
  timer.interval = intervalMs < kShortestTimerInterval ? kShortestTimerInterval : intervalMs;
  timer.lastFired = GetTickCount();
  State().timers[id] = timer;
  return true;
}

bool KillTimer(WindowHandle window, std::uintptr_t id) {
  if (window != kMainWindow) return false;
  return State().timers.erase(id) > 0;
}

std::uint32_t MillisecondsToNextTimer() {
  WindowState& s = State();
  if (!s.exists || s.timers.empty()) return std::numeric_limits<std::uint32_t>::max();
  const std::uint32_t now = GetTickCount();
  std::uint32_t best = std::numeric_limits<std::uint32_t>::max();
  for (const auto& [id, timer] : s.timers) {
    const std::uint32_t elapsed = now - timer.lastFired;
    const std::uint32_t left = elapsed >= timer.interval ? 0 : timer.interval - elapsed;
    if (left < best) best = left;
  }
  return best;
}

LResult DefWindowProc(WindowHandle window, std::uint32_t message, WParam, LParam) {
  switch (message) {
    case WM_PAINT:
      ValidateRect(window);
      return 0;
    case WM_CLOSE:
      DestroyWindow(window);
      return 0;
    case WM_SETCURSOR:
      return 0;
    default:
      return 0;
  }
}

int MessageBox(WindowHandle, const std::string& text, const std::string& caption, std::uint32_t type) {
  std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
  if (State().backend) State().backend->ShowMessageBox(text, caption, (type & MB_ICONHAND) != 0);
  return 1;
}

void WaitForInput(std::uint32_t timeoutMs) {
  if (State().backend) State().backend->WaitInput(timeoutMs);
}

void SetSystemCursorVisible(bool visible) {
  if (State().backend) State().backend->ShowSystemCursor(visible);
}

}  // namespace platform
