#pragma once
// The walk through one wild area: its grid drawn as diamond tiles seen at an angle, the
// player's figure stepping from cell to cell by the arrow keys, the numeric keypad or the
// held left button, exits back to the map, events on their cells, and every so many steps
// inside an encounter area a wild Kindrel that starts a combat. A minimap, weather by the
// area's tier and a looping ambient sound go with it.
#include <memory>
#include <string>

#include "graphics/Particles.h"
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/List.h"
#include "ui/ObjectList.h"
#include "world/AreaFile.h"

struct SoundEffect;

struct MazeCell {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const MazeCell&) const = default;
};

inline constexpr int kFacings = 4;
inline constexpr int kStepFrames = 7;

class MazeScreen : public GameMode {
 public:
  MazeScreen(std::uint32_t id, const char* name, const char* areaFile);
  ~MazeScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // Geometry: a cell's screen point (the bottom corner of its diamond), the view centred
  // on a cell, the cell under a screen point, and the direction 0..3 from the player to
  // the cell under the pointer (kept when the cell lies on a diagonal of the grid).
  void ScreenPoint(MazeCell cell, int* sx, int* sy) const;
  void CentreOn(MazeCell cell);
  MazeCell CellAt(int px, int py) const;
  void UpdatePointerDirection();

  // A step of one cell with the figure's facing; dropped while a step is animating.
  void StepRequest(int dx, int dy, int facing);
  void StepToward(int direction);

  // Why the area cannot be walked ("Genwood Forest cannot be entered: ..."); empty when it can.
  const std::string& Problem() const { return problem; }

  ObjectList widgets;
  MazeGrid grid;
  Picture wallPicture;
  Picture floorPicture;
  Picture floorMarker;
  Picture arrows[4];
  Picture figureFrames[kFacings * kStepFrames];  // frame (facing, k) = entry 7 * facing + k
  Picture marker;
  Picture ladder;
  Picture minimap;
  int dragStartX = 0, dragStartY = 0;
  int dragOriginX = 0, dragOriginY = 0;
  int dragging = 0;
  int walkHeld = 0;
  MazeCell cursorCell;
  int frameCounter = 0;
  int pointerDirection = 0;
  MazeCell playerCell;
  MazeCell previousCell;
  int walking = 0;
  int facing = 0;
  int framesPerStep = kStepFrames;
  int walkFrame = 0;
  int stepsToEncounter = 0;
  int tickCounter = 0;
  List entries;
  std::unique_ptr<ParticlePool> weather;
  SoundEffect* ambient = nullptr;
  int keepAmbient = 0;
  AreaValues values;

 private:
  void LoadArea(const char* areaFile);
  void LoadFigures();
  void StartWalking(MazeCell start);
  void EncounterCheck();
  MazeEvent* EventAt(MazeCell cell);
  EncounterArea* AreaAt(MazeCell cell);
  void Push(GameMode* screen);
  void LeaveForProblem();
  void EmitWeather();
  void RebuildMinimap();
  // How far the pictures a cell draws reach from its screen point, by their loaded sizes.
  struct CellReach {
    int left, right, up, down;
  };
  CellReach Reach(int hFloor) const;
  void Draw();
  void DrawCell(int x, int y, int hFloor, int hFigure);
  void FigurePoint(MazeCell cell, int hFloor, int hFigure, int* x, int* y) const;

  ParticleEmitter petals{}, drips{}, snow{}, rain{};
  std::string problem;
};
