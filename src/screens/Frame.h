#pragma once
// What every screen does around drawing a frame, and the shared click of the menus.
// A frame is drawn with the pointer taken off, then the pointer is put on the new frame
// and the frame is shown.
void BeginFrame();
void EndFrame();
// The click of every menu button.
void PlayClick();
