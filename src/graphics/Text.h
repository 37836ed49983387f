#pragma once
// Text in the font slots of the display, in the shared text colours.
#include "graphics/Display.h"
#include "platform/DrawText.h"

using platform::DT_CENTER;
using platform::DT_LEFT;
using platform::DT_RIGHT;
using platform::DT_WORDBREAK;

void SetTextColour(int r, int g, int b);
void SetTextBackColour(int r, int g, int b);
void SetTextTransparent(int on);
// Draws into the rectangle on the surface (the draw target when null) with the format
// flags: 0 left, 1 centred, 2 right, 16 word wrap, and their sums. Returns the height of
// the drawn text.
int DrawTextBox(int slot, const char* text, Rect rect, Surface* surface, unsigned format);
// The same on the draw target in the current text colour, over a copy in the shadow colour
// one pixel down and to the right, so that it stays readable on any picture.
void DrawShadowedTextBox(int slot, const char* text, Rect rect, unsigned format, std::uint32_t shadow);
