#include "world/MazeScreen.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <strings.h>

#include "audio/SoundEffect.h"
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Blit.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/ClickSound.h"
#include "screens/MessageScreen.h"
#include "shell/Globals.h"
#include "shell/Random.h"
#include "world/EncounterDraw.h"
#include "world/EventScreen.h"

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr int kScreenWidth = 640, kScreenHeight = 480;

const char* const kArrowFiles[4] = {"dat\\arrow-RU.bmp", "dat\\arrow-LU.bmp", "dat\\arrow-RD.bmp", "dat\\arrow-LD.bmp"};
const char* const kAmbientFiles[6] = {"dat\\forestlp.wav", "dat\\driploop.wav", "dat\\driploop.wav",
                                      "dat\\windloop.wav", "dat\\castlelp.wav", "dat\\rainloop.wav"};

// A step request by pointer direction: the cell offset and the figure's facing.
struct Step {
  int dx, dy, facing;
};
constexpr Step kDirectionSteps[4] = {{0, -1, 0}, {-1, 0, 2}, {1, 0, 3}, {0, 1, 1}};

// The keys that step: arrows and the numeric keypad's diagonal keys, by pointer direction.
int DirectionOfKey(WParam key) {
  switch (key) {
    case platform::VK_RIGHT:
    case platform::VK_NUMPAD0 + 9: return 0;
    case platform::VK_UP:
    case platform::VK_NUMPAD0 + 7: return 1;
    case platform::VK_DOWN:
    case platform::VK_NUMPAD0 + 3: return 2;
    case platform::VK_LEFT:
    case platform::VK_NUMPAD0 + 1: return 3;
    default: return -1;
  }
}

void PetalDrift(Particle* p) { p->heading = 1.25f * kPi + 0.025f * static_cast<float>(Rand() % 40); }
void DripFall(Particle* p) { p->speed += 1.0f; }
void SnowDrift(Particle* p) { p->heading = kPi + 0.01f * static_cast<float>(Rand() % 100); }
// Rain falls straight; a particle still needs an update, which marks its slot as taken.
void RainFall(Particle*) {}

ParticleEmitter Emitter(std::uint8_t r, std::uint8_t g, std::uint8_t b, int xMin, int xMax, int yMin, int yMax,
                        float heading, float speedMin, float speedMax, int lifeMin, int lifeMax, ParticleUpdate update,
                        ParticlePool* pool) {
  return ParticleEmitter{{r, g, b}, {r, g, b}, xMin, yMin, xMax, yMax, heading, speedMax, heading, speedMin,
                         lifeMax,   lifeMin,   update, pool};
}

int CurrentTier() {
  const LocationInfo* place = thePlayer.currentLocation;
  return place && place->tier >= 0 && place->tier <= 5 ? place->tier : 0;
}

}  // namespace

MazeScreen::MazeScreen(std::uint32_t id, const char* name, const char* areaFile)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  widgets.Add(new MonsterBox(1, "MonsterButton", "dat\\monst-butt.bmp", 0, 393, 104, 480));
  marker.LoadPicture("dat\\maze-point.bmp");
  ladder.LoadPicture("dat\\maze-ladder.bmp");
  floorMarker.LoadPicture("dat\\maze-point2.bmp");
  for (int d = 0; d < 4; ++d) arrows[d].LoadPicture(kArrowFiles[d]);
  LoadFigures();
  LoadArea(areaFile);
  weather = std::make_unique<ParticlePool>(1000);
  ParticlePool* pool = weather.get();
  petals = Emitter(255, 200, 200, 0, 740, 0, 400, kPi, 5.0f, 10.0f, 50, 50, PetalDrift, pool);
  drips = Emitter(155, 155, 255, 0, 640, -20, 0, kPi, 1.0f, 1.0f, 20, 20, DripFall, pool);
  snow = Emitter(255, 255, 255, 0, 640, 0, 400, kPi, 2.0f, 2.0f, 50, 50, SnowDrift, pool);
  rain = Emitter(155, 155, 255, 0, 740, -200, 400, 1.1f * kPi, 26.0f, 26.0f, 5, 10, RainFall, pool);
  cursorCell = {2, 2};
  tickCounter = 0;
  keepAmbient = 0;
}

MazeScreen::~MazeScreen() { FreeSound(ambient); }

void MazeScreen::LoadFigures() {
  const bool male = thePlayer.playerIsMale != 0;
  char file[64];
  for (int mirrored = 0; mirrored < 2; ++mirrored) {
    for (int k = 0; k < kStepFrames; ++k) {
      for (int view = 0; view < 2; ++view) {
        if (male) std::snprintf(file, sizeof file, view == 0 ? "dat\\walk%03d.bmp" : "dat\\boy%03d.bmp", k);
        else std::snprintf(file, sizeof file, view == 0 ? "dat\\gwalk%03d.bmp" : "dat\\girlf%d.bmp", k + 1);
        Picture& frame = figureFrames[(2 * mirrored + view) * kStepFrames + k];
        frame.LoadPicture(file);
        if (mirrored) frame.Mirror();
      }
    }
  }
}

// The pre-scan sizes the grid, the read fills it; a file that cannot be walked leaves an
// empty grid and the reason, and the maze leaves again at its first message.
void MazeScreen::LoadArea(const char* areaFile) {
  std::string content, reason;
  int width = 0, height = 0;
  if (LoadAreaText(areaFile, &content, &reason)) PreScanArea(content, &width, &height);
  if (reason.empty() && static_cast<std::int64_t>(width) * height > kMostMazeCells) {
    reason = "is too large";
    width = height = 0;
  }
  grid.Create(width, height);
  minimap.CreateBlank(2 * width, 2 * height);
  if (reason.empty()) ReadArea(content, grid, entries, values);
  // Without an ART line the cells are drawn without tiles.
  if (values.wallFile[0]) wallPicture.LoadPicture(values.wallFile);
  if (values.floorFile[0]) floorPicture.LoadPicture(values.floorFile);
  MazeCell start;
  if (reason.empty() && !FindStartCell(grid, &start.x, &start.y)) reason = "has no exit";
  StartWalking(start);
  if (reason.empty()) return;
  std::string file = areaFile ? areaFile : "";
  for (char& c : file) c = c == '\\' ? '/' : c;
  const char* place = thePlayer.currentLocation ? thePlayer.currentLocation->name : "This area";
  problem = std::string(place) + " cannot be entered: " + file + " " + reason + ".";
  std::fprintf(stderr, "%s\n", problem.c_str());
}

void MazeScreen::StartWalking(MazeCell start) {
  playerCell = previousCell = start;
  walking = 0;
  framesPerStep = kStepFrames;
  walkFrame = 0;
  facing = 0;
  pointerDirection = 0;
  dragging = 0;
  walkHeld = 0;
  CentreOn(start);
  stepsToEncounter = 15 + Rand() % 10;
  stayOnEventCell = 1;
  combatResult = 2;
  RebuildMinimap();
}

int MazeScreen::Activate() {
  if (stayOnEventCell == 0) {
    walking = 0;
    playerCell = previousCell;
  }
  walkHeld = 0;
  dragging = 0;
  if (combatResult != 1 && problem.empty()) {
    Draw();
    if (keepAmbient == 0) {
      FreeSound(ambient);
      ambient = LoadSound(0, kAmbientFiles[CurrentTier()]);
      if (ambient) ambient->loop = 1;
      PlaySound(0, ambient);
    }
  }
  keepAmbient = 0;
  return 1;
}

int MazeScreen::Deactivate() {
  if (keepAmbient == 0) {
    FreeSound(ambient);
    ambient = nullptr;
  }
  return 0;
}

int MazeScreen::Tick(std::uint32_t) {
  if (!problem.empty()) return 1;
  frameCounter += 1;
  tickCounter += 1;
  if (walking) {
    walkFrame += 1;
    if (walkFrame >= framesPerStep) {
      walking = 0;
      RebuildMinimap();
    }
  }
  EmitWeather();
  Draw();
  return 1;
}

void MazeScreen::EmitWeather() {
  switch (CurrentTier()) {
    case 0: petals.Emit(); break;
    case 1:
    case 2:
      if (tickCounter % 5 == 0) drips.Emit();
      break;
    case 3:
      for (int i = 0; i < 3; ++i) snow.Emit();
      break;
    case 5:
      for (int i = 0; i < 10; ++i) rain.Emit();
      break;
    default: break;
  }
}

LResult MazeScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (!problem.empty()) {
    LeaveForProblem();
    return 0;
  }
  if (combatResult == 1) {
    pendingScreen = nullptr;
    state = kStateLeave;
    return 0;
  }
  const int px = platform::PointX(lParam), py = platform::PointY(lParam);
  switch (message) {
    case platform::WM_MOUSEMOVE:
      widgets.HitTest(px, py);
      if (dragging) {
        grid.originX = dragOriginX + (px - dragStartX);
        grid.originY = dragOriginY + (py - dragStartY);
      } else {
        cursorCell = CellAt(px, py);
        UpdatePointerDirection();
      }
      break;
    case platform::WM_LBUTTONDOWN:
      walkHeld = 1;
      StepToward(pointerDirection);
      break;
    case platform::WM_LBUTTONUP: walkHeld = 0; break;
    case platform::WM_TIMER:
      if (walkHeld == 1) StepToward(pointerDirection);
      break;
    case platform::WM_RBUTTONDOWN:
      dragStartX = px;
      dragStartY = py;
      dragOriginX = grid.originX;
      dragOriginY = grid.originY;
      dragging = 1;
      cursorCell = CellAt(px, py);
      break;
    case platform::WM_RBUTTONUP: dragging = 0; break;
    case platform::WM_KEYDOWN:
      if (const int direction = DirectionOfKey(wParam); direction >= 0) StepToward(direction);
      if (wParam == platform::VK_RETURN && widgets.Cycle(kCycleStay) == 1) {
        PlayClick();
        Push(new CreatureInfoScreen(1, "INSPECT_MODE", 0, 1));
        keepAmbient = 1;
      }
      break;
    case platform::WM_PAINT: Draw(); break;
    case platform::WM_CHAR: platform::InvalidateRect(window); break;
  }
  return 0;
}

void MazeScreen::LeaveForProblem() {
  pendingScreen = new MessageScreen(1, "INFO_MODE", problem.c_str(), "dat\\back1.bmp");
  state = kStateLeave;
}

void MazeScreen::Push(GameMode* screen) {
  pendingScreen = screen;
  state = kStatePush;
}

void MazeScreen::ScreenPoint(MazeCell cell, int* sx, int* sy) const {
  *sx = grid.originX + (cell.x - cell.y) * (grid.tileWidth / 2);
  *sy = grid.originY + ((cell.x + cell.y) * grid.tileHeight) / 2;
}

void MazeScreen::CentreOn(MazeCell cell) {
  grid.originX = (cell.y - cell.x) * (grid.tileWidth / 2) + 320;
  grid.originY = 240 - ((cell.x + cell.y) * grid.tileHeight) / 2;
}

MazeCell MazeScreen::CellAt(int px, int py) const {
  const float hw = static_cast<float>(grid.tileWidth) * 0.5f;
  const float hh = static_cast<float>(grid.tileHeight) * 0.5f;
  const float u = static_cast<float>(py - grid.originY) / hh;
  const auto cx = static_cast<std::int32_t>(((u + 1.0f) * hw + static_cast<float>(px - grid.originX)) * 0.5f / hw);
  const auto cy = static_cast<std::int32_t>(u - static_cast<float>(cx) + 1.0f);
  return {cx, cy};
}

void MazeScreen::UpdatePointerDirection() {
  const int dx = cursorCell.x - playerCell.x, dy = cursorCell.y - playerCell.y;
  if (std::abs(dx) < std::abs(dy)) {
    if (dy < 0) pointerDirection = 0;
    if (dy > 0) pointerDirection = 3;
  } else if (std::abs(dx) > std::abs(dy)) {
    pointerDirection = dx < 0 ? 1 : 2;
  }
}

void MazeScreen::StepToward(int direction) {
  const Step& step = kDirectionSteps[direction & 3];
  StepRequest(step.dx, step.dy, step.facing);
}

void MazeScreen::StepRequest(int dx, int dy, int newFacing) {
  if (walking == 1) return;
  const MazeCell target{playerCell.x + dx, playerCell.y + dy};
  if (!grid.Inside(target.x, target.y) || grid.At(target.x, target.y) == kWallCell) return;
  previousCell = playerCell;
  walking = 1;
  framesPerStep = kStepFrames;
  walkFrame = 0;
  playerCell = target;
  facing = newFacing;
  int sx, sy;
  ScreenPoint(target, &sx, &sy);
  if (sx > 512 || sx < 128 || sy > 384 || sy < 96) {
    cursorCell = target;
    CentreOn(target);
  }
  const std::int32_t c = grid.At(target.x, target.y);
  if (c == kExitCell) {
    pendingScreen = nullptr;
    state = kStateLeave;
    return;
  }
  if (c != kFloorCell) {
    if (MazeEvent* event = EventAt(target)) {
      Push(new EventScreen(1, "EVENT MODE", event));
      keepAmbient = 1;
      return;
    }
  }
  EncounterCheck();
}

// The last entry in entry order wins, for events and for overlapping areas alike.
MazeEvent* MazeScreen::EventAt(MazeCell cell) {
  MazeEvent* found = nullptr;
  for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) {
    auto* event = dynamic_cast<MazeEvent*>(entry);
    if (event && strcasecmp(entry->GetName(), "EVENT") == 0 && event->x == cell.x && event->y == cell.y) found = event;
  }
  return found;
}

EncounterArea* MazeScreen::AreaAt(MazeCell cell) {
  EncounterArea* found = nullptr;
  for (ScreenObject* entry = entries.First(); entry; entry = entries.Next()) {
    auto* area = dynamic_cast<EncounterArea*>(entry);
    if (area && strcasecmp(entry->GetName(), "AREA") == 0 && area->Contains(cell.x, cell.y)) found = area;
  }
  return found;
}

// Every counted step brings the next wild Kindrel nearer; when the count runs out inside
// an encounter area, one attacks and the step is taken back.
void MazeScreen::EncounterCheck() {
  stepsToEncounter -= 1;
  if (stepsToEncounter >= 1) return;
  stepsToEncounter = 15 + Rand() % 10;
  const EncounterArea* area = AreaAt(playerCell);
  if (!area) return;
  const auto [species, level] = DrawEncounter(*area);
  SpeciesInfo* row = SpeciesAt(species);
  row->encounterLevel = level;
  auto** list = static_cast<SpeciesInfo**>(std::malloc(sizeof(SpeciesInfo*)));
  list[0] = row;
  walking = 0;
  playerCell = previousCell;
  const std::int32_t* at = values.combatPositions;
  Push(new CombatMode(1, "COMBAT MODE", list, 1, values.combatBackground, 1, at[0], at[1] - 52, at[2], at[3] - 52));
}

void MazeScreen::RebuildMinimap() {
  Surface* map = minimap.surface.get();
  if (!map || !theDisplay || map->Width() < 2 * grid.width || map->Height() < 2 * grid.height) return;
  const std::uint16_t grey = theDisplay->MatchColour(map, PackColour(40, 40, 40));
  const std::uint16_t blue = theDisplay->MatchColour(map, PackColour(0, 0, 255));
  const std::uint16_t green = theDisplay->MatchColour(map, PackColour(0, 255, 0));
  const std::uint16_t red = theDisplay->MatchColour(map, PackColour(255, 0, 0));
  for (int y = 0; y < grid.height; ++y) {
    for (int x = 0; x < grid.width; ++x) {
      const std::int32_t c = grid.At(x, y);
      std::uint16_t colour = grey;
      if (grid.visible[static_cast<std::size_t>(y) * grid.width + x] == 0) colour = grey;
      else if (playerCell == MazeCell{x, y}) colour = blue;
      else if (c == kWallCell) colour = green;
      else if (c != kFloorCell && c < kFirstHiddenSymbol) colour = red;
      map->Fill({2 * x, 2 * y, 2 * x + 2, 2 * y + 2}, colour);
    }
  }
}

void MazeScreen::FigurePoint(MazeCell cell, int hFloor, int hFigure, int* x, int* y) const {
  ScreenPoint(cell, x, y);
  *y = *y - hFigure / 2 - hFloor / 2;
}

void MazeScreen::DrawCell(int x, int y, int hFloor, int hFigure) {
  int sx, sy;
  ScreenPoint({x, y}, &sx, &sy);
  const std::int32_t c = grid.At(x, y);
  Picture& tile = c == kWallCell ? wallPicture : floorPicture;
  tile.DrawKeyed(sx, sy - tile.Height() / 2, 0);
  if (c != kFloorCell && c != kWallCell && c < kFirstHiddenSymbol) {
    const float bob = 40.0f + 5.0f * std::sin(static_cast<float>(frameCounter % 20) * kPi * 0.1f);
    Picture& above = c == kExitCell ? ladder : marker;
    const int my = static_cast<int>(static_cast<float>(sy - above.Height() / 2 - hFloor / 2) - bob);
    above.DrawKeyed(sx, my, 0);
    floorMarker.DrawKeyed(sx, sy - hFloor / 2, 0);
  }
  const MazeCell here{x, y};
  if (walking == 0 && here == playerCell) {
    int fx, fy;
    FigurePoint(playerCell, hFloor, hFigure, &fx, &fy);
    figureFrames[facing * kStepFrames].DrawKeyed(fx, fy, 0);
  } else if (walking == 1 && here == previousCell) {
    const float t = static_cast<float>(walkFrame) / static_cast<float>(framesPerStep);
    int px, py, cx, cy;
    FigurePoint(previousCell, hFloor, hFigure, &px, &py);
    FigurePoint(playerCell, hFloor, hFigure, &cx, &cy);
    const int fx = static_cast<int>((1.0f - t) * static_cast<float>(px) + t * static_cast<float>(cx));
    const int fy = static_cast<int>((1.0f - t) * static_cast<float>(py) + t * static_cast<float>(cy));
    figureFrames[facing * kStepFrames + std::min(walkFrame, kStepFrames - 1)].DrawKeyed(fx, fy, 0);
  }
}

MazeScreen::CellReach MazeScreen::Reach(int hFloor) const {
  CellReach reach{0, 0, 0, 0};
  // A picture drawn centred on (sx, sy + dy) covers sx - w / 2 .. sx - w / 2 + w across and
  // sy + dy - h / 2 .. sy + dy - h / 2 + h down; one pixel more each way covers the rounding.
  auto add = [&reach](const Picture& picture, int highest, int lowest) {
    const int w = picture.Width(), h = picture.Height();
    reach.left = std::max(reach.left, w / 2 + 1);
    reach.right = std::max(reach.right, w - w / 2 + 1);
    reach.up = std::max(reach.up, h / 2 - highest + 1);
    reach.down = std::max(reach.down, h - h / 2 + lowest + 1);
  };
  for (const Picture* tile : {&wallPicture, &floorPicture}) add(*tile, -tile->Height() / 2, -tile->Height() / 2);
  // The markers bob 35 to 45 pixels above their place.
  for (const Picture* above : {&ladder, &marker})
    add(*above, -above->Height() / 2 - hFloor / 2 - 46, -above->Height() / 2 - hFloor / 2 - 35);
  add(floorMarker, -hFloor / 2, -hFloor / 2);
  return reach;
}

void MazeScreen::Draw() {
  if (!theDisplay) return;
  theDisplay->ClearScreen(0, 0, 0);
  const int hFloor = floorPicture.Height();
  const int hFigure = figureFrames[0].Height();
  // Cells whose pictures lie wholly off the screen draw nothing; skipping them keeps large
  // mazes fast. The figure's cells are always drawn, as the walking figure moves between two.
  const CellReach reach = Reach(hFloor);
  for (int y = 0; y < grid.height; ++y) {
    for (int x = 0; x < grid.width; ++x) {
      if (grid.visible[static_cast<std::size_t>(y) * grid.width + x] != 1) continue;
      int sx, sy;
      ScreenPoint({x, y}, &sx, &sy);
      const MazeCell here{x, y};
      const bool offScreen = sx + reach.right <= 0 || sx - reach.left >= kScreenWidth || sy + reach.down <= 0 ||
                             sy - reach.up >= kScreenHeight;
      if (offScreen && here != playerCell && here != previousCell) continue;
      DrawCell(x, y, hFloor, hFigure);
    }
  }
  int cx, cy;
  ScreenPoint(cursorCell, &cx, &cy);
  arrows[pointerDirection & 3].DrawKeyed(cx, cy - grid.tileHeight / 2, 0);
  // Pale ice and stone would swallow the hint without its shadow.
  DrawShadowedTextBox(8, "Hit RETURN to view your Kindrels", {150, 3, 640, 40}, DT_CENTER, PackColour(15, 15, 15));
  minimap.DrawOpaque(4, 4, 1);
  weather->UpdateAndDraw();
  EndAdditive();
  theDisplay->Present();
}
