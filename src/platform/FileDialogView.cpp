#include "platform/FileDialogView.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

#include "platform/BitmapFile.h"
#include "platform/DataPath.h"
#include "platform/DrawText.h"
#include "platform/Font.h"
#include "platform/PackedColour.h"

namespace platform {
namespace {

// The game's colours: the night-navy board in its gold frame, white text, lavender
// entries and buttons, green for the one that is chosen or under the pointer.
struct Colour {
  int r, g, b;
};
constexpr Colour kGold{0xE8, 0xC3, 0x5A};
constexpr Colour kGoldLight{0xFF, 0xF0, 0xB0};
constexpr Colour kGoldShade{0x9C, 0x7A, 0x1E};
constexpr Colour kOutline{0x4A, 0x36, 0x08};
constexpr Colour kBoardTop{0x26, 0x30, 0x5A};
constexpr Colour kBoard{0x1C, 0x23, 0x40};
constexpr Colour kBoardBottom{0x15, 0x1B, 0x34};
constexpr Colour kInnerLine{0x2E, 0x3A, 0x66};
constexpr Colour kWell{0x10, 0x15, 0x2A};
constexpr Colour kWellEdge{0x0A, 0x0D, 0x1C};
constexpr Colour kStar{0x3A, 0x48, 0x80};
constexpr Colour kGem{0x3D, 0x8B, 0xE8};
constexpr Colour kGemShine{0x9C, 0xCB, 0xFF};
constexpr Colour kSelectedBand{0x2E, 0x3A, 0x66};
constexpr Colour kHoverBand{0x1D, 0x25, 0x48};
constexpr Colour kWhite{255, 255, 255};
constexpr Colour kLavender{180, 180, 230};
constexpr Colour kLavenderDim{130, 130, 180};
constexpr Colour kGreen{100, 255, 100};
constexpr Colour kRed{255, 96, 80};

std::uint16_t Pack(Colour c) { return Rgb565(c.r, c.g, c.b); }

Colour Mix(Colour a, Colour b, double t) {
  auto channel = [t](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * t)); };
  return {channel(a.r, b.r), channel(a.g, b.g), channel(a.b, b.b)};
}

// Blends c over the pixel with the given coverage (0..1).
void Blend(Surface& target, int x, int y, Colour c, double coverage) {
  if (x < 0 || y < 0 || x >= target.Width() || y >= target.Height() || coverage <= 0) return;
  std::uint16_t& p = target.Pixels()[static_cast<std::size_t>(y) * target.Pitch() + x];
  if (coverage >= 1) {
    p = Pack(c);
    return;
  }
  p = Pack(Mix({Red8(p), Green8(p), Blue8(p)}, c, coverage));
}

// How much of the pixel (x, y) lies inside the rectangle with corners rounded by radius,
// with one pixel of soft edge.
double RoundedCoverage(const Rect& r, double radius, int x, int y) {
  const double px = x + 0.5, py = y + 0.5;
  const double cx = std::clamp(px, r.left + radius, r.right - radius);
  const double cy = std::clamp(py, r.top + radius, r.bottom - radius);
  const double dx = px - cx, dy = py - cy;
  if (dx == 0 && dy == 0) return 1;
  return std::clamp(radius + 0.5 - std::sqrt(dx * dx + dy * dy), 0.0, 1.0);
}

// A rounded rectangle, its colour running from top to bottom through the given stops.
void FillRounded(Surface& target, const Rect& r, double radius, Colour top, Colour middle, Colour bottom) {
  for (int y = r.top; y < r.bottom; ++y) {
    const double t = r.Height() > 1 ? static_cast<double>(y - r.top) / (r.Height() - 1) : 0;
    const Colour c = t < 0.45 ? Mix(top, middle, t / 0.45) : Mix(middle, bottom, (t - 0.45) / 0.55);
    for (int x = r.left; x < r.right; ++x) Blend(target, x, y, c, RoundedCoverage(r, radius, x, y));
  }
}

void FillRounded(Surface& target, const Rect& r, double radius, Colour c) { FillRounded(target, r, radius, c, c, c); }

Rect Inset(const Rect& r, int by) { return {r.left + by, r.top + by, r.right - by, r.bottom - by}; }

void FillRect(Surface& target, const Rect& r, Colour c) { target.Fill(r, Pack(c)); }

void Disc(Surface& target, double cx, double cy, double radius, Colour c) {
  for (int y = static_cast<int>(cy - radius - 1); y <= static_cast<int>(cy + radius + 1); ++y) {
    for (int x = static_cast<int>(cx - radius - 1); x <= static_cast<int>(cx + radius + 1); ++x) {
      const double d = std::hypot(x + 0.5 - cx, y + 0.5 - cy);
      Blend(target, x, y, c, std::clamp(radius + 0.5 - d, 0.0, 1.0));
    }
  }
}

// A small triangle pointing up or down, centred in the box.
void Arrow(Surface& target, const Rect& box, bool up, Colour c) {
  const int cx = (box.left + box.right) / 2;
  const int cy = (box.top + box.bottom) / 2;
  for (int row = 0; row < 5; ++row) {
    const int y = up ? cy - 2 + row : cy + 2 - row;
    FillRect(target, {cx - row - 1, y, cx + row + 1, y + 1}, c);
  }
}

struct Fonts {
  std::unique_ptr<Font> title;  // 24: the title and the buttons
  std::unique_ptr<Font> text;   // 16: the list, the name, the notices
  std::unique_ptr<Font> button;  // 20
};

// The game's face at the cell heights its menus use, opened once.
Fonts& DialogFonts() {
  static Fonts fonts = [] {
    Fonts f;
    f.title = Font::Open("Arial Bold", 24, 400);
    f.text = Font::Open("Arial Bold", 16, 400);
    f.button = Font::Open("Arial Bold", 20, 400);
    return f;
  }();
  return fonts;
}

// The game's pointer picture, read once; nothing when the data is not there.
const std::optional<Image565>& PointerPicture() {
  static const std::optional<Image565> picture = LoadBitmapFile(DataPath("dat\\mouse00.bmp"));
  return picture;
}

std::uint32_t TextRgb(Colour c) { return PackColour(c.r, c.g, c.b); }

// Text drawing takes '&' as the mark of an underlined letter; names show it as it is.
std::string Literal(std::string_view text) {
  std::string out;
  for (char c : text) {
    out += c;
    if (c == '&') out += '&';
  }
  return out;
}

// The text, cut at the end with "..." so that it fits the width.
std::string Fit(Font& font, const std::string& text, int width) {
  if (font.Measure(text) <= width) return text;
  std::string cut = text;
  while (!cut.empty() && font.Measure(cut + "...") > width) cut.pop_back();
  while (!cut.empty() && cut.back() == ' ') cut.pop_back();
  return cut + "...";
}

// One line of text, vertically centred in the box.
void Write(Surface& target, Font* font, const std::string& text, const Rect& box, unsigned format, Colour c,
           bool shadow = false) {
  if (!font || text.empty()) return;
  const int top = box.top + (box.Height() - font->CellHeight()) / 2;
  const std::string drawn = Literal(text);
  if (shadow) {
    const Rect below{box.left + 1, top + 1, box.right + 1, box.bottom + 1};
    DrawText(target, *font, drawn, below, format, TextColours{TextRgb(kWellEdge), 0, true});
  }
  DrawText(target, *font, drawn, {box.left, top, box.right, box.bottom}, format, TextColours{TextRgb(c), 0, true});
}

std::string DateText(std::time_t when) {
  std::tm local{};
  if (!localtime_r(&when, &local)) return {};
  char text[40];
  if (std::strftime(text, sizeof text, "%d %b %Y  %H:%M", &local) == 0) return {};
  return text[0] == '0' ? text + 1 : text;
}

// The gold frame and the board, in the manner of the game's event panel.
void DrawBoard(Surface& target, const Rect& panel) {
  FillRounded(target, panel, 16, kOutline);
  FillRounded(target, Inset(panel, 1), 15, kGoldLight, kGold, kGoldShade);
  FillRounded(target, Inset(panel, 3), 13, kGold);
  // a thin groove running round the band
  FillRounded(target, Inset(panel, 6), 11, kGoldShade);
  FillRounded(target, Inset(panel, 7), 10, kGold);
  const Rect board = Inset(panel, 10);
  FillRounded(target, board, 8, kOutline);
  FillRounded(target, Inset(board, 2), 7, kBoardTop, kBoard, kBoardBottom);
  // the board's own shade under the frame, and a line a little in from its edge
  FillRect(target, {board.left + 8, board.top + 2, board.right - 8, board.top + 3}, {0x12, 0x18, 0x30});
  const Rect line = Inset(board, 8);
  FillRect(target, {line.left + 4, line.top, line.right - 4, line.top + 1}, kInnerLine);
  FillRect(target, {line.left + 4, line.bottom - 1, line.right - 4, line.bottom}, kInnerLine);
  FillRect(target, {line.left, line.top + 4, line.left + 1, line.bottom - 4}, kInnerLine);
  FillRect(target, {line.right - 1, line.top + 4, line.right, line.bottom - 4}, kInnerLine);
  // the corners of the inner line, rounded by a pixel
  Blend(target, line.left + 1, line.top + 1, kInnerLine, 0.6);
  Blend(target, line.right - 2, line.top + 1, kInnerLine, 0.6);
  Blend(target, line.left + 1, line.bottom - 2, kInnerLine, 0.6);
  Blend(target, line.right - 2, line.bottom - 2, kInnerLine, 0.6);
  // a few faint stars, away from the text
  for (const auto& [x, y, r] : {std::tuple{panel.left + 30, panel.top + 34, 1.3}, {panel.right - 34, panel.top + 40, 1.3},
                                {panel.left + 26, panel.bottom - 52, 1.1}, {panel.right - 28, panel.bottom - 40, 1.1},
                                {panel.left + 70, panel.bottom - 26, 1.0}, {panel.right - 74, panel.top + 26, 1.0}}) {
    Disc(target, x, y, r, kStar);
  }
  // a gem on each corner of the band
  for (const auto& [x, y] : {std::pair{panel.left + 11, panel.top + 11}, {panel.right - 11, panel.top + 11},
                             {panel.left + 11, panel.bottom - 11}, {panel.right - 11, panel.bottom - 11}}) {
    Disc(target, x, y, 5.2, {0x17, 0x3A, 0x73});
    Disc(target, x, y, 4.0, kGem);
    Disc(target, x - 1.4, y - 1.4, 1.2, kGemShine);
  }
  // a clasp in the middle of the top band
  const int mid = (panel.left + panel.right) / 2;
  for (int row = 0; row < 11; ++row) {
    const int half = 18 - row * row / 7;
    if (half <= 0) break;
    FillRect(target, {mid - half - 1, panel.top + 1 + row, mid + half + 1, panel.top + 2 + row}, kOutline);
    FillRect(target, {mid - half, panel.top + 1 + row, mid + half, panel.top + 2 + row}, row < 2 ? kGoldLight : kGold);
  }
  Disc(target, mid, panel.top + 6, 3.0, {0x5A, 0x14, 0x18});
  Disc(target, mid, panel.top + 6, 2.2, {0xE8, 0x4A, 0x3C});
}

// A sunken box: the list's well and the name field.
void DrawWell(Surface& target, const Rect& r) {
  FillRect(target, r, kInnerLine);
  FillRect(target, {r.left, r.top, r.right - 1, r.bottom - 1}, kWellEdge);
  FillRect(target, Inset(r, 1), kWell);
}

void DrawButton(Surface& target, const Rect& r, const char* label, bool lit, bool pressed) {
  FillRounded(target, r, 7, kOutline);
  FillRounded(target, Inset(r, 1), 6, kGoldLight, kGold, kGoldShade);
  const Rect face = Inset(r, 3);
  FillRounded(target, face, 4, kOutline);
  FillRounded(target, Inset(face, 1), 3, pressed ? kBoardBottom : kBoardTop, kBoard, pressed ? kBoardTop : kBoardBottom);
  const Rect text = pressed ? Rect{r.left + 1, r.top + 1, r.right + 1, r.bottom + 1} : r;
  Write(target, DialogFonts().button.get(), label, text, DT_CENTER, lit ? kGreen : kLavender, true);
}

void DrawList(Surface& target, const FileDialogState& state) {
  const FileDialogLayout& L = kFileDialogLayout;
  Fonts& fonts = DialogFonts();
  DrawWell(target, L.list);
  const int count = static_cast<int>(state.files.size());
  if (count == 0) {
    const Rect middle{L.list.left, L.list.top, L.scrollUp.left, L.list.bottom};
    Write(target, fonts.text.get(), state.folder.empty() ? "No saves folder" : "No saved games yet", middle, DT_CENTER,
          kLavenderDim);
  }
  int underPointer = -1;
  if (state.pointerKnown) FileDialogPartAt(state, state.pointerX, state.pointerY, &underPointer);
  for (int place = 0; place < FileDialogLayout::kVisibleRows; ++place) {
    const int index = state.firstRow + place;
    if (index < 0 || index >= count) break;
    const Rect row = L.Row(place);
    const bool selected = index == state.selected;
    const bool hovered = index == underPointer;
    if (selected) FillRect(target, {row.left, row.top + 1, row.right, row.bottom - 1}, kSelectedBand);
    else if (hovered) FillRect(target, {row.left, row.top + 1, row.right, row.bottom - 1}, kHoverBand);
    Font* font = fonts.text.get();
    if (!font) continue;
    const SavedGameFile& file = state.files[static_cast<std::size_t>(index)];
    const std::string date = DateText(file.modified);
    const int dateWidth = font->Measure("30 Sep 2000  00:00");
    const Rect dateBox{row.right - 8 - dateWidth, row.top, row.right - 8, row.bottom};
    const Rect nameBox{row.left + 8, row.top, dateBox.left - 12, row.bottom};
    Write(target, font, Fit(*font, file.shownName, nameBox.Width()), nameBox, DT_LEFT, selected ? kGreen : kLavender);
    Write(target, font, date, dateBox, DT_RIGHT, selected ? kGreen : kLavenderDim);
  }
  // the scroll bar
  const bool scrolls = count > FileDialogLayout::kVisibleRows;
  FillRect(target, {L.scrollUp.left, L.scrollUp.top, L.scrollUp.left + 1, L.scrollDown.bottom}, kWellEdge);
  FillRect(target, {L.scrollUp.left + 1, L.scrollUp.top, L.scrollUp.right, L.scrollDown.bottom}, {0x16, 0x1C, 0x36});
  for (const auto& [box, up, part] : {std::tuple{L.scrollUp, true, DialogPart::ScrollUp},
                                      std::tuple{L.scrollDown, false, DialogPart::ScrollDown}}) {
    const Rect face{box.left + 2, box.top + 1, box.right - 1, box.bottom - 1};
    FillRect(target, face, state.pressed == part ? kBoardBottom : kInnerLine);
    const bool canMove = up ? state.firstRow > 0 : state.firstRow + FileDialogLayout::kVisibleRows < count;
    const bool lit = canMove && (state.hovered == part || state.pressed == part);
    Arrow(target, face, up, !canMove ? kLavenderDim : lit ? kGreen : kGold);
  }
  if (scrolls) {
    const Rect thumb = L.Thumb(count, state.firstRow);
    const bool lit = state.hovered == DialogPart::Thumb || state.pressed == DialogPart::Thumb;
    FillRounded(target, {thumb.left + 3, thumb.top + 1, thumb.right - 2, thumb.bottom - 1}, 3, kOutline);
    FillRounded(target, {thumb.left + 4, thumb.top + 2, thumb.right - 3, thumb.bottom - 2}, 2,
                lit ? kGoldLight : kGold, kGold, kGoldShade);
  }
}

void DrawNameField(Surface& target, const FileDialogState& state) {
  const FileDialogLayout& L = kFileDialogLayout;
  Fonts& fonts = DialogFonts();
  Write(target, fonts.text.get(), "Name:", L.nameLabel, DT_LEFT, kWhite, true);
  DrawWell(target, L.nameField);
  Font* font = fonts.text.get();
  if (!font) return;
  // The end of the name stays in sight: what does not fit goes off at the left.
  const int room = L.nameField.Width() - 16;
  std::string shown = state.name;
  while (!shown.empty() && font->Measure(shown + "_") > room) shown.erase(shown.begin());
  if (state.cursorShown) shown += "_";
  const Rect box{L.nameField.left + 8, L.nameField.top, L.nameField.right - 8, L.nameField.bottom};
  // A proposed name shows in the colour of a chosen row: typing replaces it.
  Write(target, font, shown, box, DT_LEFT, state.nameProposed ? kGreen : kWhite);
}

void DrawPointer(Surface& target, const FileDialogState& state) {
  if (!state.pointerKnown) return;
  const int x0 = state.pointerX, y0 = state.pointerY;
  if (const auto& picture = PointerPicture(); picture && picture->width > 0) {
    for (int y = 0; y < picture->height; ++y) {
      for (int x = 0; x < picture->width; ++x) {
        const std::uint16_t p = picture->pixels[static_cast<std::size_t>(y) * picture->width + x];
        const int tx = x0 + x, ty = y0 + y;
        if (p == 0 || tx < 0 || ty < 0 || tx >= target.Width() || ty >= target.Height()) continue;
        target.Pixels()[static_cast<std::size_t>(ty) * target.Pitch() + tx] = p;
      }
    }
    return;
  }
  // Without the game's picture: a plain arrow, white with a dark edge.
  for (int row = 0; row < 16; ++row) {
    const int width = row < 11 ? row + 1 : 16 - row;
    for (int x = 0; x < width; ++x) {
      const bool edge = x == 0 || x == width - 1 || row == 15;
      Blend(target, x0 + x, y0 + row, edge ? kOutline : kWhite, 1);
    }
  }
}

// The game's frame as it lies under the dialog: darkened, a little towards blue.
void DimFrame(const Surface* frame, Surface& target) {
  const bool usable = frame && !frame->IsLost() && frame->Width() == target.Width() && frame->Height() == target.Height();
  if (!usable) {
    target.Fill(target.Bounds(), Rgb565(8, 10, 22));
    return;
  }
  for (int y = 0; y < target.Height(); ++y) {
    for (int x = 0; x < target.Width(); ++x) {
      const std::uint16_t p = frame->At(x, y);
      // Two fifths of the light, and a touch of the night blue.
      const int r = Red8(p) * 2 / 5, g = Green8(p) * 2 / 5 + 2, b = Blue8(p) * 2 / 5 + 10;
      target.Pixels()[static_cast<std::size_t>(y) * target.Pitch() + x] = Rgb565(r, g, std::min(b, 255));
    }
  }
}

}  // namespace

Rect FileDialogLayout::Thumb(int count, int firstRow) const {
  if (count <= kVisibleRows) return track;
  const int height = std::max(18, track.Height() * kVisibleRows / count);
  const int travel = track.Height() - height;
  const int top = track.top + travel * std::clamp(firstRow, 0, count - kVisibleRows) / (count - kVisibleRows);
  return {track.left, top, track.right, top + height};
}

DialogPart FileDialogPartAt(const FileDialogState& state, int x, int y, int* file) {
  const FileDialogLayout& L = kFileDialogLayout;
  auto inside = [x, y](const Rect& r) { return x >= r.left && x < r.right && y >= r.top && y < r.bottom; };
  if (file) *file = -1;
  if (inside(L.ok)) return DialogPart::Ok;
  if (inside(L.cancel)) return DialogPart::Cancel;
  if (inside(L.nameField)) return DialogPart::NameField;
  if (inside(L.scrollUp)) return DialogPart::ScrollUp;
  if (inside(L.scrollDown)) return DialogPart::ScrollDown;
  const int count = static_cast<int>(state.files.size());
  if (inside(L.track)) {
    return count > FileDialogLayout::kVisibleRows && inside(L.Thumb(count, state.firstRow)) ? DialogPart::Thumb
                                                                                            : DialogPart::Track;
  }
  for (int place = 0; place < FileDialogLayout::kVisibleRows; ++place) {
    if (!inside(L.Row(place))) continue;
    const int index = state.firstRow + place;
    if (index >= count) return DialogPart::None;
    if (file) *file = index;
    return DialogPart::Row;
  }
  return DialogPart::None;
}

void DrawFileDialogGround(const Surface* backdrop, const std::string& title, Surface& target) {
  if (target.IsLost() || target.IsLocked() || target.Width() < 640 || target.Height() < 480) return;
  const FileDialogLayout& L = kFileDialogLayout;
  DimFrame(backdrop, target);
  // a soft shadow under the panel
  for (int d = 6; d >= 1; --d) {
    const Rect shadow{L.panel.left + 2 - d, L.panel.top + 6 - d, L.panel.right + 2 + d, L.panel.bottom + 6 + d};
    for (int y = shadow.top; y < shadow.bottom; ++y) {
      for (int x = shadow.left; x < shadow.right; ++x) {
        if (x >= L.panel.left + 6 && x < L.panel.right - 6 && y >= L.panel.top + 6 && y < L.panel.bottom - 6) continue;
        Blend(target, x, y, {0, 0, 6}, 0.12 * RoundedCoverage(shadow, 16 + d, x, y));
      }
    }
  }
  DrawBoard(target, L.panel);
  Write(target, DialogFonts().title.get(), title, L.title, DT_CENTER, kWhite, true);
  // a gold rule under the title, with a small diamond in its middle
  const int mid = (L.panel.left + L.panel.right) / 2;
  const int ruleY = L.title.bottom + 6;
  FillRect(target, {mid - 110, ruleY, mid - 8, ruleY + 1}, kGoldShade);
  FillRect(target, {mid + 8, ruleY, mid + 110, ruleY + 1}, kGoldShade);
  for (int row = -4; row <= 4; ++row) {
    const int half = 4 - std::abs(row);
    FillRect(target, {mid - half, ruleY + row, mid + half + 1, ruleY + row + 1}, kGold);
  }
  target.Touch();
}

void DrawFileDialogParts(const FileDialogState& state, Surface& target) {
  if (target.IsLost() || target.IsLocked() || target.Width() < 640 || target.Height() < 480) return;
  const FileDialogLayout& L = kFileDialogLayout;
  DrawList(target, state);
  DrawNameField(target, state);
  if (state.noSuchGame) Write(target, DialogFonts().text.get(), "No such game", L.notice, DT_CENTER, kRed, true);
  DrawButton(target, L.ok, "OK", state.hovered == DialogPart::Ok || state.pressed == DialogPart::Ok,
             state.pressed == DialogPart::Ok && state.hovered == DialogPart::Ok);
  DrawButton(target, L.cancel, "Cancel", state.hovered == DialogPart::Cancel || state.pressed == DialogPart::Cancel,
             state.pressed == DialogPart::Cancel && state.hovered == DialogPart::Cancel);
  DrawPointer(target, state);
  target.Touch();
}

void DrawFileDialog(const FileDialogState& state, const Surface* backdrop, Surface& target) {
  DrawFileDialogGround(backdrop, state.title, target);
  DrawFileDialogParts(state, target);
}

}  // namespace platform
