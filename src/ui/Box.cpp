#include "ui/Box.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "graphics/Text.h"

std::uint32_t blinkCounter = 0;

Box::Box(std::uint32_t id, const char* name, const char* text, std::uint32_t textCapacity, int l, int t, int r, int b,
         int fontSlot)
    : ScreenObject(id, name), left(l), top(t), right(r), bottom(b), capacity(textCapacity), font(fontSlot) {
  caption = std::make_unique<char[]>(static_cast<std::size_t>(capacity) + 1);
  SetCaption(text);
}

Box::Box(WithPicture, std::uint32_t id, const char* name, const char* pictureFile, int px, int py, int l, int t, int r, int b)
    : ScreenObject(id, name), left(l), top(t), right(r), bottom(b), pictureX(px), pictureY(py) {
  picture = std::make_unique<Picture>();
  picture->LoadPicture(pictureFile);
}

Box::~Box() = default;
Button::~Button() = default;
MonsterBox::~MonsterBox() = default;

int Box::Contains(int x, int y) const { return left <= x && x <= right && top <= y && y <= bottom ? 1 : 0; }

void Box::Draw(int r, int g, int b) {
  if (picture) picture->DrawKeyed(pictureX, pictureY, 1);
  if (!caption) return;
  std::string text = caption.get();
  if (editable && (blinkCounter / 10) % 2 == 1) text += "_";
  SetTextColour(r, g, b);
  SetTextTransparent(1);
  DrawTextBox(font, text.c_str(), {left, top, right, bottom}, nullptr, editable ? DT_LEFT : DT_CENTER);
}

void Box::SetCaption(const char* text) {
  if (!caption) return;
  std::snprintf(caption.get(), static_cast<std::size_t>(capacity) + 1, "%s", text ? text : "");
}

void Box::TypeChar(int character) {
  if (editable != 1 || !caption) return;
  const std::size_t length = std::strlen(caption.get());
  if (character == 8) {
    if (length > 0) caption[length - 1] = '\0';
    return;
  }
  if (character == 13) return;
  if (length >= capacity) return;
  caption[length] = static_cast<char>(character);
  caption[length + 1] = '\0';
}
