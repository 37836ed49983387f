#pragma once
// How the file dialog looks: where its parts lie in the 640 x 480 frame, and the drawing
// of one frame of it from its state. The dialog draws itself with these, and the
// screenshot tour shows chosen states with them.
#include <string>

#include "platform/FileDialog.h"
#include "platform/Surface.h"

namespace platform {

struct FileDialogLayout {
  static constexpr int kVisibleRows = 8;
  static constexpr int kRowHeight = 22;

  Rect panel{96, 52, 544, 428};
  Rect title{121, 66, 519, 96};
  Rect list{121, 124, 519, 306};  // the well, its border included
  Rect scrollUp{498, 125, 518, 145};
  Rect scrollDown{498, 285, 518, 305};
  Rect track{498, 145, 518, 285};
  Rect nameLabel{121, 314, 180, 340};
  Rect nameField{184, 314, 519, 340};
  Rect notice{121, 342, 519, 362};
  Rect ok{188, 366, 308, 402};
  Rect cancel{332, 366, 452, 402};

  // The list's row at the given place from the top (0 .. kVisibleRows - 1).
  Rect Row(int place) const {
    const int top = list.top + 3 + place * kRowHeight;
    return {list.left + 2, top, scrollUp.left - 1, top + kRowHeight};
  }
  // The scroll bar's thumb for a list of count files whose top row shows file firstRow.
  Rect Thumb(int count, int firstRow) const;
};

inline constexpr FileDialogLayout kFileDialogLayout{};

// The part under the point; for DialogPart::Row, *file is the index of the file there.
DialogPart FileDialogPartAt(const FileDialogState& state, int x, int y, int* file);

// What stays while the dialog is up: the game's frame dimmed (a dark ground without one),
// the panel's shadow, the framed board and the title.
void DrawFileDialogGround(const Surface* backdrop, const std::string& title, Surface& target);
// What changes: the list, the name field, the notice, the buttons and the pointer.
void DrawFileDialogParts(const FileDialogState& state, Surface& target);
// One whole frame of the dialog: the frame dimmed, the panel over it.
void DrawFileDialog(const FileDialogState& state, const Surface* backdrop, Surface& target);

}  // namespace platform
