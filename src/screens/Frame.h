#pragma once
// What every screen does around drawing a frame, and the shared click of the menus.
// A frame is drawn with the pointer taken off, then the pointer is put on the new frame
// and the frame is shown.
void BeginFrame();
void EndFrame();
// The click of every menu button.
void PlayClick();

class Picture;
class ObjectList;
// The six party boxes as picture boxes with the highlight frame, ids firstId .. firstId + 5.
void AddPartyBoxes(ObjectList& widgets, int firstId);
// Repeats the picture over the whole 640 x 480 screen from its top-left corner.
void TilePicture(Picture& picture);
// The frame picture at the top-left corner of each of the six party boxes.
void DrawPartyFrames(Picture& frame);
