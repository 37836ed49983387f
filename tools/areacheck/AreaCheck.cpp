#include "AreaCheck.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <filesystem>
#include <set>
#include <strings.h>

#include "creatures/SpeciesTable.h"
#include "platform/DataPath.h"
#include "platform/DrawText.h"
#include "platform/Font.h"
#include "ui/List.h"
#include "world/AreaFile.h"

namespace {

// The event panel's text rectangle.
constexpr int kPanelWidth = 400;
constexpr int kPanelHeight = 240;

struct Area {
  MazeGrid grid;
  List entries;
  AreaValues values;
  AreaRepairs repairs;
  std::vector<MazeEvent*> events;
  std::vector<EncounterArea*> areas;
};

bool Holds(const std::vector<std::string>& items, const char* need) {
  const std::size_t length = std::strlen(need);
  return std::any_of(items.begin(), items.end(),
                     [&](const std::string& item) { return strncasecmp(item.c_str(), need, length) == 0; });
}

std::string Cell(int x, int y) { return "(" + std::to_string(x) + ", " + std::to_string(y) + ")"; }

std::string Symbol(int symbol) { return std::string("'") + static_cast<char>(symbol) + "'"; }

class FileCheck {
 public:
  FileCheck(AreaReport& r, const AreaCheckOptions& o, std::vector<std::string>& h) : report(r), options(o), held(h) {}

  void Run() {
    std::string content, reason;
    if (!LoadAreaText(report.file.c_str(), &content, &reason)) return Problem("the file " + reason);
    int width = 0, height = 0;
    PreScanArea(content, &width, &height);
    area.grid.Create(width, height);
    ReadArea(content, area.grid, area.entries, area.values, &area.repairs);
    for (ScreenObject* entry = area.entries.First(); entry; entry = area.entries.Next()) {
      if (auto* event = dynamic_cast<MazeEvent*>(entry)) area.events.push_back(event);
      if (auto* encounter = dynamic_cast<EncounterArea*>(entry)) area.areas.push_back(encounter);
    }
    CheckShape();
    CheckPictures();
    CheckEncounterAreas();
    CheckEvents();
    CheckPaths();
  }

  std::vector<std::string> given;  // items given by events the player can reach

 private:
  void Problem(const std::string& text) { report.problems.push_back(text); }

  void CheckShape() {
    const MazeGrid& g = area.grid;
    if (g.width < options.smallestSide || g.height < options.smallestSide || g.width > options.largestSide ||
        g.height > options.largestSide)
      Problem("the maze is " + std::to_string(g.width) + " x " + std::to_string(g.height) + " cells");
    const AreaRepairs& r = area.repairs;
    if (r.rowsCut) Problem(std::to_string(r.rowsCut) + " rows are longer than the last one");
    if (r.rowsShort) Problem(std::to_string(r.rowsShort) + " rows are shorter than the last one");
    if (r.rowsUnended) Problem("a ROW line has no line end and loses its last cell");
    if (r.oneCellAreas) Problem(std::to_string(r.oneCellAreas) + " encounter areas have one cell only");
    if (!FindStartCell(g, &start.x, &start.y)) Problem("there is no exit, so no start");
  }

  void CheckPictures() {
    if (options.dataRoot.empty()) return;
    for (const char* name : {area.values.wallFile, area.values.floorFile, area.values.combatBackground}) {
      std::string path = name;
      std::replace(path.begin(), path.end(), '\\', '/');
      if (path.empty() || !std::filesystem::exists(options.dataRoot + "/" + path))
        Problem("the picture '" + std::string(name) + "' is missing");
    }
  }

  void CheckEncounterAreas() {
    for (const EncounterArea* a : area.areas) {
      const std::string name = "the encounter area " + Symbol(a->Symbol());
      if (a->left == -1) {
        Problem(name + " has no cell");
        continue;
      }
      if (a->left > a->right || a->top > a->bottom) Problem(name + " runs from its first cell back to its last");
      for (int y = 0; y < area.grid.height; ++y)
        for (int x = 0; x < area.grid.width; ++x)
          if (area.grid.At(x, y) == a->Symbol() && !a->Contains(x, y))
            Problem(name + " has the cell " + Cell(x, y) + " outside its rectangle");
      if (a->speciesMin < 0 || a->speciesMax >= kSpeciesCount || a->speciesMin > a->speciesMax)
        Problem(name + " meets species " + std::to_string(a->speciesMin) + " to " + std::to_string(a->speciesMax));
      if (a->levelMin < 1 || a->levelMax < a->levelMin)
        Problem(name + " meets levels " + std::to_string(a->levelMin) + " to " + std::to_string(a->levelMax));
      for (int s = std::max(a->speciesMin, 0); s <= std::min(a->speciesMax, kSpeciesCount - 1); ++s)
        report.species.push_back(s);
    }
  }

  void CheckEvents() {
    for (const MazeEvent* e : area.events) {
      const std::string name = "the event " + Symbol(e->Symbol());
      int cells = 0;
      for (int symbol : area.grid.cells) cells += symbol == e->Symbol();
      if (cells != 1) Problem(name + " stands on " + std::to_string(cells) + " cells");
      if (e->mainText[0] == '\0') Problem(name + " has no main text");
      if (e->needs[0] != '\0' && e->needText[0] == '\0') Problem(name + " needs an item but says nothing without it");
      if (e->gives[0] != '\0') report.gives.push_back(e->gives);
      if (e->needs[0] != '\0') report.needs.push_back(e->needs);
      Measure(name + "'s main text", e->mainText);
      Measure(name + "'s need-text", e->needText);
    }
  }

  void Measure(const std::string& what, const char* text) {
    if (!options.font || !*text) return;
    const auto lines = platform::LayoutText(*options.font, text, kPanelWidth, platform::DT_CENTER | platform::DT_WORDBREAK);
    const int height = static_cast<int>(lines.size()) * options.font->CellHeight();
    if (height > kPanelHeight) Problem(what + " is " + std::to_string(lines.size()) + " lines, too long for the panel");
    for (const auto& line : lines)
      if (options.font->Measure(line.text) > kPanelWidth) Problem(what + " has a line wider than the panel");
  }

  MazeEvent* EventAt(int x, int y) const {
    MazeEvent* found = nullptr;
    for (MazeEvent* e : area.events)
      if (e->x == x && e->y == y) found = e;
    return found;
  }

  // Walks from the start as a player can, taking up the items of the events reached, until
  // no new item opens a further way.
  void CheckPaths() {
    if (!area.grid.Inside(start.x, start.y)) return;
    std::vector<std::uint8_t> reached;
    for (std::size_t known = SIZE_MAX; known != given.size();) {
      known = given.size();
      reached = Walk();
    }
    const MazeGrid& g = area.grid;
    for (int y = 0; y < g.height; ++y) {
      for (int x = 0; x < g.width; ++x) {
        const int c = g.At(x, y);
        const bool marked = c != kFloorCell && c != kWallCell && c < kFirstHiddenSymbol;
        if (!marked || reached[static_cast<std::size_t>(y) * g.width + x]) continue;
        Problem(std::string(c == kExitCell ? "the exit" : "the marked cell") + " at " + Cell(x, y) +
                " cannot be reached from the start");
      }
    }
    for (const MazeEvent* e : area.events)
      if (e->needs[0] != '\0' && !Holds(held, e->needs) && !Holds(given, e->needs))
        Problem("the event " + Symbol(e->Symbol()) + " needs '" + e->needs + "', which is not given before it");
  }

  // Cells the player can stand on or step onto (exits end a walk; a locked event turns the
  // player back).
  std::vector<std::uint8_t> Walk() {
    const MazeGrid& g = area.grid;
    std::vector<std::uint8_t> seen(g.cells.size(), 0);
    std::deque<std::pair<int, int>> open{{start.x, start.y}};
    seen[static_cast<std::size_t>(start.y) * g.width + start.x] = 1;
    while (!open.empty()) {
      const auto [x, y] = open.front();
      open.pop_front();
      if (g.At(x, y) == kExitCell && !(x == start.x && y == start.y)) continue;
      for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        const int nx = x + dx, ny = y + dy;
        if (g.At(nx, ny) == kWallCell) continue;
        std::uint8_t& mark = seen[static_cast<std::size_t>(ny) * g.width + nx];
        if (mark) continue;
        mark = 1;
        MazeEvent* event = g.At(nx, ny) != kFloorCell ? EventAt(nx, ny) : nullptr;
        if (event && event->needs[0] != '\0' && !Holds(held, event->needs) && !Holds(given, event->needs)) continue;
        if (event && event->gives[0] != '\0' &&
            std::find(given.begin(), given.end(), event->gives) == given.end())
          given.push_back(event->gives);
        open.push_back({nx, ny});
      }
    }
    return seen;
  }

  AreaReport& report;
  const AreaCheckOptions& options;
  std::vector<std::string>& held;
  Area area;
  struct {
    int x = -1, y = -1;
  } start;
};

}  // namespace

std::vector<AreaReport> CheckAreas(const std::vector<std::string>& files, const AreaCheckOptions& options,
                                   std::vector<std::string>* overall) {
  std::vector<AreaReport> reports;
  std::vector<std::string> held, needs;
  std::set<int> species;
  for (const std::string& file : files) {
    AreaReport report;
    report.file = file;
    FileCheck check(report, options, held);
    check.Run();
    held.insert(held.end(), check.given.begin(), check.given.end());
    species.insert(report.species.begin(), report.species.end());
    needs.insert(needs.end(), report.needs.begin(), report.needs.end());
    reports.push_back(std::move(report));
  }
  for (AreaReport& report : reports)
    for (const std::string& item : report.gives)
      if (std::none_of(needs.begin(), needs.end(), [&](const std::string& need) { return Holds({item}, need.c_str()); }))
        report.problems.push_back("the item '" + item + "' is given but needed nowhere");
  std::vector<std::string> missing;
  for (int s = 0; s < kSpeciesCount; ++s)
    if (!species.count(s)) missing.push_back(std::to_string(s));
  if (overall && !missing.empty()) {
    std::string list;
    for (const std::string& s : missing) list += (list.empty() ? "" : ", ") + s;
    overall->push_back("no area meets the species " + list);
  }
  return reports;
}
