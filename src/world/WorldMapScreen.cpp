#include "world/WorldMapScreen.h"

#include <cmath>

#include "audio/SoundEffect.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Blit.h"
#include "graphics/CrossFade.h"
#include "graphics/Text.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/HomeScreen.h"
#include "screens/MarketScreen.h"
#include "screens/MenuInput.h"
#include "screens/PartyBoxes.h"
#include "screens/PauseMenuScreen.h"
#include "screens/TempleScreen.h"
#include "screens/TowerScreen.h"
#include "shell/Globals.h"
#include "world/MazeScreen.h"

namespace {

const char* const kKindPictures[8] = {"dat\\home.bmp",     "dat\\mine.bmp",   "dat\\wiz-blue.bmp", "dat\\adoption.bmp",
                                      "dat\\temple.bmp",   "dat\\forest.bmp", "dat\\ruin.bmp",     "dat\\castle.bmp"};

bool Near(const LocationInfo& place, int x, int y) {
  const float dx = static_cast<float>(x - place.mapX), dy = static_cast<float>(y - place.mapY);
  return place.open == 1 && std::sqrt(dx * dx + dy * dy) <= 20.0f;
}

}  // namespace

WorldMapScreen::WorldMapScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  AddPartyBoxes(widgets, 1);
  widgets.Add(new Button(0, "Options", 64, 540, 345, 640, 370, 2));
  background.LoadPicture("dat\\island1.bmp");
  frame.LoadPicture("dat\\outline2.bmp");
  cloud.LoadPicture("dat\\skycloud.bmp");
  for (int kind = 0; kind < 8; ++kind) kindPictures[kind].LoadPicture(kKindPictures[kind]);
}

WorldMapScreen::~WorldMapScreen() { FreeSound(ambient); }

int WorldMapScreen::Activate() {
  FreeSound(ambient);
  ambient = LoadSound(0, "dat\\pcmonst2.wav");
  if (gameQuitRequest) return 1;
  if (ambient) ambient->loop = 1;
  PlaySound(0, ambient);
  revealed = 0;
  Draw();
  return 1;
}

int WorldMapScreen::Deactivate() {
  FreeSound(ambient);
  ambient = nullptr;
  return 0;
}

int WorldMapScreen::Tick(std::uint32_t) {
  cloudX += 1;
  if (cloudX > 650) cloudX = -cloud.Width();
  Draw();
  return 1;
}

LocationInfo* WorldMapScreen::PlaceNear(int x, int y, bool last) {
  LocationInfo* found = nullptr;
  for (LocationInfo& place : locationTable) {
    if (!Near(place, x, y)) continue;
    found = &place;
    if (!last) break;
  }
  return found;
}

LResult WorldMapScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (gameQuitRequest) {
    pendingScreen = nullptr;
    state = kStateLeave;
    gameQuitRequest = 0;
    return 0;
  }
  const MenuInput input =
      AnswerMenuInput(widgets, window, message, wParam, lParam, [this](MenuAction) { WidgetAction(); });
  const int x = platform::PointX(lParam), y = platform::PointY(lParam);
  if (input.missed) ClickPlace(x, y);
  if (message == platform::WM_MOUSEMOVE) {
    // The last near row wins the hover; with none near, the name stays.
    if (LocationInfo* near = PlaceNear(x, y, true)) hovered = near;
  }
  return 0;
}

void WorldMapScreen::Push(GameMode* screen) {
  pendingScreen = screen;
  state = kStatePush;
}

void WorldMapScreen::ClickPlace(int x, int y) {
  // The first near row wins the click.
  LocationInfo* place = PlaceNear(x, y, false);
  if (!place) return;
  thePlayer.currentLocation = place;
  const bool canFight = thePlayer.HasFighter();
  switch (place->kind) {
    case kLocationHome: Push(new HomeScreen(1, "HEAL MODE")); break;
    case kLocationMarket: Push(new MarketScreen(1, "MARKET MODE")); break;
    case kLocationTemple: Push(new TempleScreen(1, "HELP MODE")); break;
    case kLocationTower:
      if (canFight && thePlayer.wizardDefeated[place->tier] == 0) Push(new TowerScreen(1, "TOWER MODE", place->tier));
      break;
    default:
      if (IsWildArea(*place) && canFight) Push(new MazeScreen(1, "MAZE MODE", place->areaFile));
      break;
  }
}

void WorldMapScreen::WidgetAction() {
  const int id = widgets.Cycle(kCycleStay);
  if (id == 0) {
    PlayClick();
    Push(new PauseMenuScreen(1, "PAUSE OPTION MODE"));
  } else if (id >= 1 && id <= kPartySize) {
    InspectSlot(*this, id - 1, 1);
  }
}

void WorldMapScreen::Draw() {
  BeginFrame();
  // In a window the frame is drawn straight onto the screen: keep the old picture first,
  // so that the new one can be faded in from it.
  std::unique_ptr<Surface> previous;
  if (!revealed && !theDisplay->back && theDisplay->front) {
    previous = std::make_unique<Surface>(640, 480);
    previous->CopyFrom(0, 0, *theDisplay->front, {0, 0, 640, 480}, false);
  }
  background.DrawOpaque(0, 0, 1);
  for (const LocationInfo& place : locationTable) {
    if (place.open != 1) continue;
    if (place.kind >= 0 && place.kind < 8) kindPictures[place.kind].DrawKeyed(place.mapX, place.mapY, 0);
    if (place.kind == kLocationTower && thePlayer.wizardDefeated[place.tier] == 1) {
      SetTextColour(255, 0, 0);
      DrawTextBox(1, "Defeated", {place.mapX - 60, place.mapY - 10, place.mapX + 60, place.mapY + 10}, nullptr, DT_CENTER);
      SetTextColour(255, 255, 255);
    }
  }
  DrawPartyBoxes(frame);
  if (hovered) {
    const int x = hovered->mapX, y = hovered->mapY;
    SetTextColour(255, 255, 55);
    DrawShadowedTextBox(1, hovered->name, {x - 70, y + 20, x + 70, y + 40}, DT_CENTER, PackColour(15, 15, 15));
    SetTextColour(255, 255, 255);
  }
  widgets.DrawAll();
  cloud.DrawAdditive(cloudX, 40, 1);
  EndAdditive();
  if (!revealed) Reveal(std::move(previous));
  EndFrame();
}

void WorldMapScreen::Reveal(std::unique_ptr<Surface> previous) {
  revealed = 1;
  if (theDisplay->back) {
    CrossFade(theDisplay->front.get(), theDisplay->back.get());
    return;
  }
  if (!previous || !theDisplay->front) return;
  // The fade writes its steps onto the screen; the new frame goes back on after it.
  Surface* screen = theDisplay->front.get();
  Surface frameNow(640, 480);
  frameNow.CopyFrom(0, 0, *screen, {0, 0, 640, 480}, false);
  CrossFade(previous.get(), &frameNow);
  screen->CopyFrom(0, 0, frameNow, {0, 0, 640, 480}, false);
}
