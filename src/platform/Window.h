#pragma once
// The window and its message queue, in the shape of the classic windowing interface the
// game was written against. There is one main window.
//
// Ordering: posted messages (device input included) first; then WM_QUIT once it has been
// posted; then one WM_PAINT when the window has been invalidated (any number of
// invalidations make one); then WM_TIMER when a timer is due. Destroying the window sends
// WM_DESTROY at once.
#include <cstdint>
#include <string>

#include "platform/Backend.h"
#include "platform/Messages.h"

namespace platform {

inline constexpr WindowHandle kMainWindow = 1;
inline constexpr std::uint32_t kShortestTimerInterval = 10;

// The backend that the platform uses; the caller keeps ownership. Installing one resets
// the queue, the window and the timers.
void InstallBackend(Backend* backend);
Backend* CurrentBackend();

std::uint32_t GetTickCount();

void SetWindowProcedure(WindowProc procedure);
WindowProc GetWindowProcedure();

// Opens the main window; sends WM_ACTIVATE when it is up. Returns 0 on failure.
WindowHandle CreateMainWindow(const std::string& title, int width, int height, bool windowed,
                              OpenResult* result = nullptr);
bool WindowExists();
bool DestroyWindow(WindowHandle window);

bool PeekMessage(Message* out);  // without removal
bool GetMessage(Message* out);   // false for WM_QUIT; call only when PeekMessage found one
LResult DispatchMessage(const Message& message);
bool PostMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam);
LResult SendMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam);
void PostQuitMessage(int exitCode);
// Device input from a backend: posted, and a redraw of the frame is due after it.
void PostInput(std::uint32_t message, WParam wParam, LParam lParam);

void InvalidateRect(WindowHandle window);
void ValidateRect(WindowHandle window);
bool SetTimer(WindowHandle window, std::uintptr_t id, std::uint32_t intervalMs);
bool KillTimer(WindowHandle window, std::uintptr_t id);
// Milliseconds until the next timer is due (0: due now), or UINT32_MAX with no timer.
std::uint32_t MillisecondsToNextTimer();

LResult DefWindowProc(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam);

// Message box types: an OK button alone, or with the hand (error) icon.
inline constexpr std::uint32_t MB_OK = 0;
inline constexpr std::uint32_t MB_ICONHAND = 0x10;

// Shows the box (and writes it to standard error); returns 1 (OK).
int MessageBox(WindowHandle window, const std::string& text, const std::string& caption, std::uint32_t type);

void WaitForInput(std::uint32_t timeoutMs);

void SetSystemCursorVisible(bool visible);

}  // namespace platform
