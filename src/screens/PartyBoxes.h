#pragma once
// The six party boxes along the bottom of the screens that show the party: the boxes as
// widgets, and the boxes as they are drawn.
class ObjectList;
class Picture;

// The six boxes as picture boxes with the highlight frame, ids firstId .. firstId + 5.
void AddPartyBoxes(ObjectList& widgets, int firstId);
// The frame picture at the top-left corner of each box, then the party strip in them.
void DrawPartyBoxes(Picture& frame);
