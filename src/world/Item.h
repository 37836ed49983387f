#pragma once
// Something the player holds: a plain name, gained from the events of the mazes and kept
// in the player's item list in the order of gaining.
#include "shell/ScreenObject.h"

class Item : public ScreenObject {
 public:
  // Every item has id 1; its name is its text (cut to 255 characters).
  explicit Item(const char* text) : ScreenObject(1, text) {}
  ~Item() override = default;
};
