#include "shell/ModeStack.h"

ModeStack* theModeStack = nullptr;

ModeStack::ModeStack() { theModeStack = this; }

ModeStack::~ModeStack() {
  if (theModeStack == this) theModeStack = nullptr;
}

GameMode* ModeStack::Pop() {
  GameMode* top = Top();
  if (top) Remove(nullptr);
  return top;
}
