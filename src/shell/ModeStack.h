#pragma once
// The stack of screens. The top is the last element; the stack owns its screens and
// deletes those still in it when it is destroyed.
#include "shell/GameMode.h"
#include "ui/List.h"

class ModeStack : public List {
 public:
  ModeStack();
  ~ModeStack() override;

  void Push(GameMode* screen) { Append(screen); }
  GameMode* Top() { return static_cast<GameMode*>(Last()); }
  // Takes the top screen off without deleting it.
  GameMode* Pop();
};

// Set by the ModeStack's constructor, cleared by its destructor.
extern ModeStack* theModeStack;
