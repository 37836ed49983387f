#pragma once
// The widgets of one screen: the current (highlighted) widget, the two caption colours,
// mouse hit testing, keyboard cycling and drawing. Screens learn which widget was chosen
// by its id.
#include <cstdint>

#include "ui/Box.h"
#include "ui/List.h"

class ObjectList {
 public:
  // Colours packed as r | g << 8 | b << 16.
  ObjectList(std::uint32_t normalColour, std::uint32_t highlightColour);
  virtual ~ObjectList();
  ObjectList(const ObjectList&) = delete;
  ObjectList& operator=(const ObjectList&) = delete;

  // Appends the widget and makes it current; returns its id.
  int Add(Box* widget);
  // The id of the widget under (x, y), made current; -1 when it was current already; -2
  // when no widget is there. The earliest added widget wins where widgets overlap.
  int HitTest(int x, int y);
  void DrawAll();
  // 1: the previous widget, 2: the next one (both wrap round), 3: stay. Returns the id of
  // the current widget, or -2.
  int Cycle(int direction);
  void TypeChar(int character);
  Box* FindById(std::uint32_t id);

  List items;
  Box* current = nullptr;
  std::uint32_t normalColour;
  std::uint32_t highlightColour;
};

inline constexpr int kCyclePrevious = 1;
inline constexpr int kCycleNext = 2;
inline constexpr int kCycleStay = 3;
inline constexpr int kHitCurrent = -1;
inline constexpr int kHitNothing = -2;
