#pragma once
// Text output in the manner of the classic DrawText: lines broken where the text breaks
// them, optional word wrapping, left / centred / right alignment, clipping to the
// rectangle, and a transparent or opaque background behind each line.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Surface.h"

namespace platform {

class Font;

inline constexpr unsigned DT_LEFT = 0;
inline constexpr unsigned DT_CENTER = 1;
inline constexpr unsigned DT_RIGHT = 2;
inline constexpr unsigned DT_WORDBREAK = 16;

struct TextColours {
  std::uint32_t text = 0xFFFFFF;  // r | g << 8 | b << 16
  std::uint32_t back = 0;
  bool transparent = true;
};

struct TextLine {
  std::string text;          // as drawn: prefix marks removed
  std::vector<int> underlined;  // indices into text of characters marked with '&'
};

// The lines the text is drawn in. An '&' marks the next character (drawn underlined);
// "&&" stands for one '&', and a single '&' at the very end is drawn as it is. Word
// wrapping breaks lines at spaces only.
std::vector<TextLine> LayoutText(Font& font, std::string_view text, int width, unsigned format);

// Returns the height of the drawn text. Draws nothing on a lost or locked surface.
int DrawText(Surface& target, Font& font, std::string_view text, const Rect& rect, unsigned format,
             const TextColours& colours);

}  // namespace platform
