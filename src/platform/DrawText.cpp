#include "platform/DrawText.h"

#include <algorithm>

#include "platform/Font.h"
#include "platform/PackedColour.h"

namespace platform {
namespace {

// One paragraph with its prefix marks resolved. A single '&' that ends the whole text
// marks nothing and is drawn; one that ends a paragraph before a line break is dropped.
TextLine ResolvePrefixes(std::string_view paragraph, bool endsText) {
  TextLine out;
  for (std::size_t i = 0; i < paragraph.size(); ++i) {
    if (paragraph[i] == '&') {
      if (i + 1 == paragraph.size()) {
        if (endsText) out.text += '&';
        continue;
      }
      if (paragraph[i + 1] != '&') out.underlined.push_back(static_cast<int>(out.text.size()));
      ++i;
    }
    out.text += paragraph[i];
  }
  return out;
}

// A carriage return and a line feed next to each other, in either order, are one break.
std::vector<std::string_view> SplitParagraphs(std::string_view text) {
  std::vector<std::string_view> paragraphs;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    paragraphs.push_back(text.substr(start, i - start));
    const char other = text[i] == '\r' ? '\n' : '\r';
    if (i + 1 < text.size() && text[i + 1] == other) ++i;
    start = i + 1;
  }
  paragraphs.push_back(text.substr(start));
  return paragraphs;
}

TextLine Slice(const TextLine& whole, std::size_t from, std::size_t to) {
  TextLine line;
  line.text = whole.text.substr(from, to - from);
  for (int index : whole.underlined) {
    if (index >= static_cast<int>(from) && index < static_cast<int>(to)) line.underlined.push_back(index - static_cast<int>(from));
  }
  return line;
}

// Greedy wrapping at spaces. Each line takes at least one word: a word wider than the
// whole line stands alone and the rectangle clips it; words are never split.
void Wrap(Font& font, const TextLine& paragraph, int width, std::vector<TextLine>& out) {
  const std::string& p = paragraph.text;
  const std::size_t n = p.size();
  std::size_t pos = 0;
  do {
    std::size_t fit = std::string::npos;
    for (std::size_t i = pos;;) {
      std::size_t j = i;
      while (j < n && p[j] == ' ') ++j;
      while (j < n && p[j] != ' ') ++j;
      if (fit != std::string::npos && font.Measure(std::string_view(p).substr(pos, j - pos)) > width) break;
      fit = i = j;
      if (j >= n) break;
    }
    std::size_t end = fit;
    while (end > pos && p[end - 1] == ' ' && end != n) --end;
    out.push_back(Slice(paragraph, pos, end));
    pos = fit;
    while (pos < n && p[pos] == ' ') ++pos;
  } while (pos < n);
}

int ChannelBlend(int source, int target, int coverage) {
  return (source * coverage + target * (255 - coverage)) / 255;
}

void BlendMask(Surface& target, const GlyphMask& mask, int x, int y, const Rect& clip, std::uint32_t colour) {
  const int r = PackedRed(colour), g = PackedGreen(colour), b = PackedBlue(colour);
  const int x0 = std::max(x, clip.left), x1 = std::min(x + mask.width, clip.right);
  const int y0 = std::max(y, clip.top), y1 = std::min(y + mask.height, clip.bottom);
  std::uint16_t* pixels = target.Pixels();
  for (int py = y0; py < y1; ++py) {
    const std::uint8_t* row = mask.coverage.data() + static_cast<std::size_t>(py - y) * mask.width;
    std::uint16_t* out = pixels + static_cast<std::size_t>(py) * target.Pitch();
    for (int px = x0; px < x1; ++px) {
      const int a = row[px - x];
      if (a == 0) continue;
      const std::uint16_t d = out[px];
      out[px] = a == 255 ? Rgb565(r, g, b)
                         : Rgb565(ChannelBlend(r, Red8(d), a), ChannelBlend(g, Green8(d), a), ChannelBlend(b, Blue8(d), a));
    }
  }
}

void FillClipped(Surface& target, Rect area, const Rect& clip, std::uint16_t value) {
  area.left = std::max(area.left, clip.left);
  area.top = std::max(area.top, clip.top);
  area.right = std::min(area.right, clip.right);
  area.bottom = std::min(area.bottom, clip.bottom);
  if (!area.Empty()) target.Fill(area, value);
}

}  // namespace

std::vector<TextLine> LayoutText(Font& font, std::string_view text, int width, unsigned format) {
  std::vector<TextLine> lines;
  const std::vector<std::string_view> paragraphs = SplitParagraphs(text);
  for (std::size_t k = 0; k < paragraphs.size(); ++k) {
    TextLine resolved = ResolvePrefixes(paragraphs[k], k + 1 == paragraphs.size());
    if ((format & DT_WORDBREAK) && !resolved.text.empty()) {
      Wrap(font, resolved, width, lines);
    } else {
      lines.push_back(std::move(resolved));
    }
  }
  return lines;
}

int DrawText(Surface& target, Font& font, std::string_view text, const Rect& rect, unsigned format,
             const TextColours& colours) {
  if (target.IsLost() || target.IsLocked()) return 0;
  const Rect clip{std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, target.Width()),
                  std::min(rect.bottom, target.Height())};
  const std::vector<TextLine> lines = LayoutText(font, text, rect.Width(), format);
  const int lineHeight = font.CellHeight();
  int y = rect.top;
  target.Touch();
  for (const TextLine& line : lines) {
    const int width = font.Measure(line.text);
    int x = rect.left;
    if (format & DT_CENTER) x = rect.left + (rect.Width() - width) / 2;
    else if (format & DT_RIGHT) x = rect.right - width;
    if (!clip.Empty() && y < clip.bottom) {
      if (!colours.transparent) FillClipped(target, {x, y, x + width, y + lineHeight}, clip, PackedTo565(colours.back));
      BlendMask(target, font.Render(line.text), x, y, clip, colours.text);
      for (int index : line.underlined) {
        const int from = x + font.Measure(std::string_view(line.text).substr(0, index));
        const int to = x + font.Measure(std::string_view(line.text).substr(0, index + 1));
        FillClipped(target, {from, y + lineHeight - 2, to, y + lineHeight - 1}, clip, PackedTo565(colours.text));
      }
    }
    y += lineHeight;
  }
  return y - rect.top;
}

}  // namespace platform
