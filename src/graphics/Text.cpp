#include "graphics/Text.h"

void SetTextColour(int r, int g, int b) {
  if (theDisplay) theDisplay->textColour = PackColour(r, g, b);
}

void SetTextBackColour(int r, int g, int b) {
  if (theDisplay) theDisplay->textBackColour = PackColour(r, g, b);
}

void SetTextTransparent(int on) {
  if (!theDisplay) return;
  if (on) theDisplay->modeFlags |= kModeTransparentText;
  else theDisplay->modeFlags &= ~static_cast<std::uint32_t>(kModeTransparentText);
}

int DrawTextBox(int slot, const char* text, Rect rect, Surface* surface, unsigned format) {
  if (!theDisplay || !text) return 0;
  theDisplay->RestoreFront();
  Surface* target = surface ? surface : theDisplay->DrawTarget();
  platform::Font* font = theDisplay->FontAt(slot);
  if (!target || !font) return 0;
  const platform::TextColours colours{theDisplay->textColour, theDisplay->textBackColour,
                                      (theDisplay->modeFlags & kModeTransparentText) != 0};
  return platform::DrawText(*target, *font, text, rect, format, colours);
}

void DrawShadowedTextBox(int slot, const char* text, Rect rect, unsigned format, std::uint32_t shadow) {
  if (!theDisplay) return;
  const std::uint32_t colour = theDisplay->textColour;
  theDisplay->textColour = shadow;
  DrawTextBox(slot, text, {rect.left + 1, rect.top + 1, rect.right + 1, rect.bottom + 1}, nullptr, format);
  theDisplay->textColour = colour;
  DrawTextBox(slot, text, rect, nullptr, format);
}
