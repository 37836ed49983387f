#pragma once
// What puts the game's frames into the window: the surface the window shows, sent to the
// backend when it has changed and the message queue has run dry, only the parts of it that
// differ from what is on the screen.
namespace platform {

class Surface;

// The surface that the window shows (null: none); the next refresh sends all of it.
void SetWindowSurface(const Surface* surface);
const Surface* WindowSurface();
// Puts the window's surface on the screen when it has changed since it was last shown.
void RefreshWindow();
// Puts the surface on the screen at once, for effects that run inside one frame and for
// the dialogs drawn over the game.
void ShowSurfaceNow(const Surface& surface);
// Forgets the surface and what is on the screen, as a newly installed backend starts.
void ResetFrameUploader();

}  // namespace platform
