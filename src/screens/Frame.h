#pragma once
// What every screen does around drawing a frame: the frame is drawn with the pointer taken
// off, then the pointer is put on the new frame and the frame is shown.
void BeginFrame();
void EndFrame();
