// Tour pages of the wild areas: the maze of each area with its weather, markers, ladder,
// arrow and minimap; both figures in every facing in the middle of a step; the event panel
// with a main text and with a need-text; and the message of an area that cannot be walked.
#include <cstring>
#include <string>

#include "Tour.h"
#include "creatures/PlayerRecord.h"
#include "platform/Messages.h"
#include "shell/Globals.h"
#include "world/EventScreen.h"
#include "world/MazeScreen.h"

namespace {

MazeScreen* MazeOfPlace(int row, int male = 1) {
  thePlayer.StartNewGame();
  thePlayer.playerIsMale = male;
  thePlayer.currentLocation = &locationTable[row];
  return new MazeScreen(1, "MAZE MODE", locationTable[row].areaFile);
}

// The pointer over a cell next to the figure, so that the arrow shows, and time for the
// weather to fill the screen.
void LookAround(TourGame& game) {
  auto* maze = dynamic_cast<MazeScreen*>(currentScreen);
  if (maze) {
    int sx, sy;
    maze->ScreenPoint({maze->playerCell.x, maze->playerCell.y - 1}, &sx, &sy);
    game.backend.MouseMove(sx, sy - 14);
  }
  game.RunFor(2000);
}

// The figure one step into the area, then halfway through a step in the given facing.
void MidStep(TourGame& game, int facing) {
  game.RunFor(300);
  game.backend.KeyPress(platform::VK_RIGHT);
  game.RunFor(400);
  auto* maze = dynamic_cast<MazeScreen*>(currentScreen);
  if (!maze) return;
  maze->previousCell = maze->playerCell;
  maze->facing = facing;
  maze->walking = 1;
  maze->walkFrame = 2;
}

// The first event of the maze whose need is set (or not), shown as a step onto it shows it.
void ShowEvent(TourGame& game, bool withNeed) {
  game.RunFor(300);
  auto* maze = dynamic_cast<MazeScreen*>(currentScreen);
  if (!maze) return;
  for (ScreenObject* entry = maze->entries.First(); entry; entry = maze->entries.Next()) {
    auto* event = dynamic_cast<MazeEvent*>(entry);
    if (!event || (event->needs[0] != '\0') != withNeed || event->mainText[0] == '\0') continue;
    pendingScreen = new EventScreen(1, "EVENT MODE", event);
    maze->state = kStatePush;
    game.backend.MouseMove(320, 382);
    game.RunFor(300);
    return;
  }
}

struct AreaPage {
  const char* name;
  int row;
};
constexpr AreaPage kAreas[] = {{"maze-genwood", 1}, {"maze-beachcave", 2}, {"maze-ruins", 3},
                               {"maze-icecave", 4}, {"maze-castle", 5},    {"maze-forest2", 6}};

TourPage genwood(kAreas[0].name, [] { return MazeOfPlace(kAreas[0].row); }, LookAround);
TourPage beach(kAreas[1].name, [] { return MazeOfPlace(kAreas[1].row); }, LookAround);
TourPage ruins(kAreas[2].name, [] { return MazeOfPlace(kAreas[2].row); }, LookAround);
TourPage ice(kAreas[3].name, [] { return MazeOfPlace(kAreas[3].row); }, LookAround);
TourPage castle(kAreas[4].name, [] { return MazeOfPlace(kAreas[4].row); }, LookAround);
TourPage dismal(kAreas[5].name, [] { return MazeOfPlace(kAreas[5].row); }, LookAround);

TourPage boy0("figure-boy-up-right", [] { return MazeOfPlace(1); }, [](TourGame& g) { MidStep(g, 0); });
TourPage boy1("figure-boy-down-left", [] { return MazeOfPlace(1); }, [](TourGame& g) { MidStep(g, 1); });
TourPage boy2("figure-boy-up-left", [] { return MazeOfPlace(1); }, [](TourGame& g) { MidStep(g, 2); });
TourPage boy3("figure-boy-down-right", [] { return MazeOfPlace(1); }, [](TourGame& g) { MidStep(g, 3); });
TourPage girl0("figure-girl-up-right", [] { return MazeOfPlace(2, 0); }, [](TourGame& g) { MidStep(g, 0); });
TourPage girl1("figure-girl-down-left", [] { return MazeOfPlace(2, 0); }, [](TourGame& g) { MidStep(g, 1); });
TourPage girl2("figure-girl-up-left", [] { return MazeOfPlace(2, 0); }, [](TourGame& g) { MidStep(g, 2); });
TourPage girl3("figure-girl-down-right", [] { return MazeOfPlace(2, 0); }, [](TourGame& g) { MidStep(g, 3); });

TourPage eventMain("event-main-text", [] { return MazeOfPlace(1); }, [](TourGame& g) { ShowEvent(g, false); });
TourPage eventNeed("event-need-text", [] { return MazeOfPlace(2); }, [](TourGame& g) {
  ShowEvent(g, true);
});

TourPage missing("maze-missing-area", [] {
  thePlayer.StartNewGame();
  thePlayer.currentLocation = &locationTable[1];
  return new MazeScreen(1, "MAZE MODE", "dat\\nowhere.dat");
}, [](TourGame& game) {
  game.backend.MouseMove(320, 382);
  game.RunFor(500);
});

}  // namespace
