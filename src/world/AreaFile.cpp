#include "world/AreaFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>

#include "platform/AtomicFile.h"
#include "platform/DataPath.h"
#include "shell/TextLines.h"
#include "ui/List.h"

namespace {

enum class Keyword { None, Row, Event, Area, CombatLoc, MainText, CombatArt, Art, NeedText, Needs, Gives };

// In the order in which they are tried: the first that the line's word begins with wins.
struct KeywordName {
  Keyword keyword;
  const char* name;
};
constexpr KeywordName kKeywords[] = {
    {Keyword::Row, "ROW"},           {Keyword::Event, "EVENT"},       {Keyword::Area, "AREA"},
    {Keyword::CombatLoc, "COMBATLOC"}, {Keyword::MainText, "MAINTEXT"}, {Keyword::CombatArt, "COMBATART"},
    {Keyword::Art, "ART"},           {Keyword::NeedText, "NEEDTEXT"}, {Keyword::Needs, "NEEDS"},
    {Keyword::Gives, "GIVES"},
};

struct Line {
  Keyword keyword = Keyword::None;
  std::string_view argument;  // from its first character to the end of the line, line end included
};

Line Classify(std::string_view piece) {
  const std::string_view text = SkipSpace(piece);
  if (text.size() < 3) return {};  // empty lines and lines of one character
  const std::string_view word = FirstWord(text);
  Line line;
  for (const KeywordName& k : kKeywords) {
    if (BeginsWithKeyword(word, k.name)) {
      line.keyword = k.keyword;
      break;
    }
  }
  if (line.keyword == Keyword::None) return {};
  line.argument = SkipSpace(text.substr(word.size()));
  if (line.argument.empty()) return {};  // a keyword without an argument
  return line;
}

// The lines of the content, read as text: a CR LF is one line end, wherever the bounded
// reads split the line, so that files of both line-end styles read alike.
template <typename Visit>
void ForEachLine(std::string_view content, Visit visit) {
  const std::string text = WithPlainLineEnds(content);
  for (std::size_t at = 0; at < text.size();) visit(Classify(NextLinePiece(text, at)));
}

// A text value: the argument without the line feeds at its end, cut to fit the field.
template <std::size_t N>
void SetText(char (&field)[N], std::string_view argument) {
  while (!argument.empty() && argument.back() == '\n') argument.remove_suffix(1);
  const std::size_t length = std::min(argument.size(), N - 1);
  std::memcpy(field, argument.data(), length);
  field[length] = '\0';
}

// One "%d" conversion: white space, a sign, digits. Saturates at the int32 range. False,
// leaving the text as it was, when no number is there.
bool ReadNumber(std::string_view& text, std::int32_t* value) {
  std::string_view rest = SkipSpace(text);
  std::size_t i = 0;
  bool negative = false;
  if (i < rest.size() && (rest[i] == '+' || rest[i] == '-')) negative = rest[i++] == '-';
  const std::size_t digits = i;
  std::int64_t number = 0;
  for (; i < rest.size() && rest[i] >= '0' && rest[i] <= '9'; ++i)
    number = std::min<std::int64_t>(number * 10 + (rest[i] - '0'), std::int64_t{1} << 32);
  if (i == digits) return false;
  number = negative ? -number : number;
  *value = static_cast<std::int32_t>(std::clamp<std::int64_t>(number, std::numeric_limits<std::int32_t>::min(),
                                                             std::numeric_limits<std::int32_t>::max()));
  text = rest.substr(i);
  return true;
}

// Reads numbers into the fields in turn until one cannot be read; the rest keep their values.
void ReadNumbers(std::string_view text, std::initializer_list<std::int32_t*> fields) {
  for (std::int32_t* field : fields)
    if (!ReadNumber(text, field)) return;
}

std::int32_t SymbolOf(char c) { return static_cast<signed char>(c); }

class AreaReader {
 public:
  AreaReader(MazeGrid& g, List& e, AreaValues& v, AreaRepairs& r) : grid(g), entries(e), values(v), repairs(r) {}

  void Read(const Line& line) {
    const std::string_view arg = line.argument;
    switch (line.keyword) {
      case Keyword::None: break;
      case Keyword::Row: StoreRow(arg); break;
      case Keyword::Event:
        FinishEvent();
        event = std::make_unique<MazeEvent>(SymbolOf(arg[0]));
        break;
      case Keyword::Area: BeginArea(arg); break;
      case Keyword::CombatLoc:
        ReadNumbers(arg, {&values.combatPositions[0], &values.combatPositions[1], &values.combatPositions[2],
                          &values.combatPositions[3]});
        break;
      case Keyword::MainText:
        if (event) SetText(event->mainText, arg);
        break;
      case Keyword::CombatArt: SetText(values.combatBackground, arg); break;
      case Keyword::Art: ReadArt(arg); break;
      case Keyword::NeedText:
        if (event) SetText(event->needText, arg);
        break;
      case Keyword::Needs:
        if (event) SetText(event->needs, arg);
        break;
      case Keyword::Gives:
        if (event) SetText(event->gives, arg);
        break;
    }
  }

  void Finish() {
    FinishEvent();
    FinishArea();
    PlaceEntries();
    CountOneCellAreas();
    std::fill(grid.visible.begin(), grid.visible.end(), 1);
  }

 private:
  void StoreRow(std::string_view arg) {
    ++row;
    if (row >= grid.height) return;
    // The last character is the line end (or, on a last line without one, is lost).
    const std::size_t cells = arg.size() - 1, width = static_cast<std::size_t>(grid.width);
    repairs.rowsUnended += arg.back() != '\n';
    repairs.rowsCut += cells > width;
    repairs.rowsShort += cells < width;
    const std::size_t length = std::min(cells, width);
    for (std::size_t x = 0; x < length; ++x) grid.Cell(static_cast<int>(x), row) = SymbolOf(arg[x]);
  }

  void BeginArea(std::string_view arg) {
    FinishArea();
    area = std::make_unique<EncounterArea>(SymbolOf(arg[0]));
    ReadNumbers(arg.substr(FirstWord(arg).size()),
                {&area->speciesMin, &area->speciesMax, &area->levelMin, &area->levelMax});
  }

  void ReadArt(std::string_view arg) {
    const std::string_view wall = FirstWord(arg);
    SetText(values.wallFile, wall);
    const std::string_view rest = SkipSpace(arg.substr(wall.size()));
    if (!rest.empty()) SetText(values.floorFile, FirstWord(rest));
  }

  void FinishEvent() {
    if (event) entries.Append(event.release());
  }
  void FinishArea() {
    if (area) entries.Append(area.release());
  }

  // Every cell that is neither floor nor wall places the entries of its symbol: an event
  // on the last such cell, an area over the rectangle from the first to the last.
  void PlaceEntries() {
    for (int y = 0; y < grid.height; ++y) {
      for (int x = 0; x < grid.width; ++x) {
        const std::int32_t c = grid.Cell(x, y);
        if (c == kFloorCell || c == kWallCell) continue;
        for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) Place(entry, c, x, y);
      }
    }
  }

  void CountOneCellAreas() {
    for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) {
      const auto* area = dynamic_cast<EncounterArea*>(entry);
      if (area && area->left != -1 && area->left == area->right && area->top == area->bottom) ++repairs.oneCellAreas;
    }
  }

  static void Place(ScreenObject* entry, std::int32_t symbol, int x, int y) {
    if (auto* e = dynamic_cast<MazeEvent*>(entry); e && e->Symbol() == symbol) {
      e->x = x;
      e->y = y;
    } else if (auto* a = dynamic_cast<EncounterArea*>(entry); a && a->Symbol() == symbol) {
      if (a->left == -1) {
        a->left = x;
        a->top = y;
      }
      a->right = x;
      a->bottom = y;
    }
  }

  MazeGrid& grid;
  List& entries;
  AreaValues& values;
  AreaRepairs& repairs;
  std::unique_ptr<MazeEvent> event;
  std::unique_ptr<EncounterArea> area;
  int row = -1;
};

}  // namespace

void MazeGrid::Create(int w, int h) {
  width = std::max(w, 0);
  height = std::max(h, 0);
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  cells.assign(count, kWallCell);
  visible.assign(count, 0);
}

std::int32_t MazeGrid::At(int x, int y) const {
  return Inside(x, y) ? cells[static_cast<std::size_t>(y) * width + x] : kWallCell;
}

MazeEvent::MazeEvent(std::int32_t symbol) : ScreenObject(static_cast<std::uint32_t>(symbol), "EVENT") {}
MazeEvent::~MazeEvent() = default;

EncounterArea::EncounterArea(std::int32_t symbol) : ScreenObject(static_cast<std::uint32_t>(symbol), "AREA") {}
EncounterArea::~EncounterArea() = default;

void PreScanArea(std::string_view content, int* width, int* height) {
  int rows = 0, columns = 0;
  ForEachLine(content, [&](const Line& line) {
    if (line.keyword != Keyword::Row) return;
    ++rows;
    columns = static_cast<int>(line.argument.size()) - 1;
  });
  *width = columns;
  *height = rows;
}

void ReadArea(std::string_view content, MazeGrid& grid, List& entries, AreaValues& values, AreaRepairs* repairs) {
  AreaRepairs ignored;
  AreaReader reader(grid, entries, values, repairs ? *repairs : ignored);
  ForEachLine(content, [&](const Line& line) { reader.Read(line); });
  reader.Finish();
}

bool FindStartCell(const MazeGrid& grid, int* x, int* y) {
  for (int i = static_cast<int>(grid.cells.size()) - 1; i >= 0; --i) {
    if (grid.cells[static_cast<std::size_t>(i)] != kExitCell) continue;
    *x = i % grid.width;
    *y = i / grid.width;
    return true;
  }
  return false;
}

bool LoadAreaText(const char* gameName, std::string* content, std::string* reason) {
  const std::string path = platform::DataPath(gameName ? gameName : "");
  std::error_code code;
  if (!std::filesystem::exists(path, code)) {
    *reason = "is missing";
    return false;
  }
  std::string error;
  if (!platform::ReadWholeFile(path, content, &error)) {
    *reason = "cannot be read: " + error;
    return false;
  }
  return true;
}
