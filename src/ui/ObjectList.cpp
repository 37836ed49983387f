#include "ui/ObjectList.h"

namespace {

int Red(std::uint32_t c) { return static_cast<int>(c & 0xFF); }
int Green(std::uint32_t c) { return static_cast<int>((c >> 8) & 0xFF); }
int Blue(std::uint32_t c) { return static_cast<int>((c >> 16) & 0xFF); }

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
      if (widget->picture || widget->caption) {
        widget->Draw(Red(highlightColour), Green(highlightColour), Blue(highlightColour));
      }
    } else if (widget->caption) {
      widget->Draw(Red(normalColour), Green(normalColour), Blue(normalColour));
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
