#pragma once
// The clickable things of a screen: a rectangle that the mouse hits, with a caption or a
// picture. A Button is a Box with a centred caption; an editable Box is a text field with
// a blinking cursor; a MonsterBox is a Box made with a picture, which its ObjectList shows
// only while it is current (a selection frame).
#include <cstdint>
#include <memory>

#include "graphics/Picture.h"
#include "shell/ScreenObject.h"

// Counts WM_TIMER messages on the screen that holds a text field; the cursor blinks with it.
extern std::uint32_t blinkCounter;

class Box : public ScreenObject {
 public:
  // A caption box; a null text gives an empty caption.
  Box(std::uint32_t id, const char* name, const char* text, std::uint32_t capacity, int left, int top, int right,
      int bottom, int font);
  // A picture box: the picture is drawn keyed with its top-left corner at (pictureX, pictureY).
  // The tag keeps the two constructors apart, whose arguments look alike.
  struct WithPicture {};
  Box(WithPicture, std::uint32_t id, const char* name, const char* pictureFile, int pictureX, int pictureY, int left, int top,
      int right, int bottom);
  ~Box() override;

  // Edges belong to the box.
  int Contains(int x, int y) const;
  void Draw(int r, int g, int b);
  // The text must not be longer than the capacity; a longer one is cut to it.
  void SetCaption(const char* text);
  // Backspace removes the last character, Enter is ignored, anything else is appended while
  // there is room. Only editable boxes change.
  void TypeChar(int character);
  const char* Caption() const { return caption.get(); }

  int left, top, right, bottom;
  std::unique_ptr<char[]> caption;
  std::uint32_t capacity = 0;
  int font = 0;
  std::unique_ptr<Picture> picture;
  int pictureX = 0;
  int pictureY = 0;
  int editable = 0;
};

class Button : public Box {
 public:
  Button(std::uint32_t id, const char* text, std::uint32_t capacity, int left, int top, int right, int bottom, int font)
      : Box(id, "X", text, capacity, left, top, right, bottom, font) {}
  ~Button() override;
};

class MonsterBox : public Box {
 public:
  MonsterBox(std::uint32_t id, const char* name, const char* pictureFile, int left, int top, int right, int bottom)
      : Box(WithPicture{}, id, name, pictureFile, left, top, left, top, right, bottom) {}
  ~MonsterBox() override;
};
