#include "screens/PlaceScreen.h"

#include "audio/SoundEffect.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "screens/ClickSound.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "screens/PartyBoxes.h"
#include "screens/Tiling.h"
#include "shell/Globals.h"

PlaceScreen::PlaceScreen(std::uint32_t id, const char* name, const char* backgroundFile, const char* fanfareFile,
                         int firstBoxId)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)), firstBox(firstBoxId) {
  fanfare = LoadSound(0, fanfareFile);
  PlaySound(0, fanfare);
  AddPartyBoxes(widgets, firstBox);
  background.LoadPicture(backgroundFile);
  frame.LoadPicture("dat\\outline2.bmp");
}

PlaceScreen::~PlaceScreen() { FreeSound(fanfare); }

int PlaceScreen::Activate() {
  Draw();
  return 1;
}

int PlaceScreen::Deactivate() { return 0; }

int PlaceScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult PlaceScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this](MenuAction) { Choose(); });
  return 0;
}

void PlaceScreen::Leave() {
  PlayClick();
  pendingScreen = nullptr;
  state = kStateLeave;
}

int PlaceScreen::BoxSlot(int id) const { return id >= firstBox && id < firstBox + kPartySize ? id - firstBox : -1; }

bool PlaceScreen::InspectBox(int id) {
  const int slot = BoxSlot(id);
  if (slot < 0) return false;
  InspectSlot(*this, slot, 1);
  return true;
}

void PlaceScreen::Draw() {
  BeginFrame();
  TilePicture(background);
  DrawScenery();
  DrawPartyBoxes(frame);
  SetTextColour(255, 255, 255);
  SetTextTransparent(1);
  DrawPlace();
  widgets.DrawAll();
  EndFrame();
}
