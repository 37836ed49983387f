#include "ui/ObjectList.h"

#include "platform/PackedColour.h"

namespace {

void DrawInColour(Box& widget, std::uint32_t colour) {
  widget.Draw(platform::PackedRed(colour), platform::PackedGreen(colour), platform::PackedBlue(colour));
}

}  // namespace

ObjectList::ObjectList(std::uint32_t normal, std::uint32_t highlight)
    : normalColour(normal), highlightColour(highlight) {}

ObjectList::~ObjectList() = default;

int ObjectList::Add(Box* widget) {
  if (!items.Append(widget)) return kHitNothing;
  current = widget;
  return static_cast<int>(widget->GetId());
}

int ObjectList::HitTest(int x, int y) {
  Box* first = static_cast<Box*>(items.First());
  if (!first) return kHitNothing;
  Box* widget = first;
  do {
    if (widget->Contains(x, y)) {
      if (widget == current) return kHitCurrent;
      current = widget;
      return static_cast<int>(widget->GetId());
    }
    widget = static_cast<Box*>(items.NextWrap());
  } while (widget != first);
  return kHitNothing;
}

void ObjectList::DrawAll() {
  Box* first = static_cast<Box*>(items.First());
  if (!first) return;
  Box* widget = first;
  do {
    if (widget == current) {
      if (widget->picture || widget->caption) DrawInColour(*widget, highlightColour);
    } else if (widget->caption) {
      DrawInColour(*widget, normalColour);
    }
    widget = static_cast<Box*>(items.NextWrap());
  } while (widget != first);
}

int ObjectList::Cycle(int direction) {
  if (direction == kCycleStay) return current ? static_cast<int>(current->GetId()) : kHitNothing;
  if (direction != kCyclePrevious && direction != kCycleNext) return kHitNothing;
  // Stand on the current widget, or on the first one when there is none.
  if (!(current && items.FindItem(current)) && !items.First()) return kHitNothing;
  Box* reached = static_cast<Box*>(direction == kCyclePrevious ? items.PrevWrap() : items.NextWrap());
  if (!reached) return kHitNothing;
  current = reached;
  return static_cast<int>(reached->GetId());
}

void ObjectList::TypeChar(int character) {
  if (current) current->TypeChar(character);
}

Box* ObjectList::FindById(std::uint32_t id) { return static_cast<Box*>(items.FindById(id)); }
