#include "screens/MarketScreen.h"

#include "creatures/PartyStrip.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"
#include "shell/TextFormat.h"

MarketScreen::MarketScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  fanfare = LoadSound(0, "dat\\fanfare5.wav");
  PlaySound(0, fanfare);
  for (int k = 0; k < kPartySize; ++k) {
    const Rect box = PartyBoxRect(k);
    widgets.Add(new MonsterBox(kFirstBox + k, "MonsterBox", "dat\\mapModeOutline.bmp", box.left, box.top, box.right,
                               box.bottom));
  }
  widgets.Add(new Button(kGiveAway, "Give Away", 64, 120, 340, 320, 370, 2));
  widgets.Add(new Button(kDone, "Done", 64, 320, 340, 520, 370, 2));
  background.LoadPicture("dat\\market-back.bmp");
  frame.LoadPicture("dat\\outline2.bmp");
  chosenSlot = kNoSlot;
}

MarketScreen::~MarketScreen() { FreeSound(fanfare); }

int MarketScreen::Activate() {
  Draw();
  return 1;
}

int MarketScreen::Deactivate() { return 0; }

int MarketScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult MarketScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this] { Choose(); });
  return 0;
}

void MarketScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kDone) {
    PlayClick();
    pendingScreen = nullptr;
    state = kStateLeave;
  } else if (id == kGiveAway) {
    GiveAway();
  } else if (id >= kFirstBox && id < kFirstBox + kPartySize) {
    chosenSlot = id - kFirstBox;
  }
}

void MarketScreen::GiveAway() {
  // Quietly refused without a chosen Kindrel, and for the last one of the party.
  if (chosenSlot < 0 || chosenSlot >= kPartySize) return;
  auto& creature = thePlayer.party[chosenSlot];
  if (!creature || thePlayer.PartyCount() < 2) return;
  creature->Release();
  creature.reset();
  // The slot stays empty: the Kindrels after it keep their places, and chosenSlot now
  // names the empty slot, which brings the prompt back.
}

void MarketScreen::Draw() {
  BeginFrame();
  TilePicture(background);
  DrawPartyFrames(frame);
  drawPartyStrip(-1);
  SetTextColour(255, 255, 255);
  SetTextTransparent(1);
  const Kindrel* chosen = chosenSlot >= 0 && chosenSlot < kPartySize ? thePlayer.party[chosenSlot].get() : nullptr;
  if (chosen) {
    DrawTextBox(2, Format("Do you want to give away %s?", chosen->name).c_str(), {100, 80, 540, 330}, nullptr,
                DT_CENTER | DT_WORDBREAK);
    if (chosen->picture) chosen->picture->DrawKeyed(320, 240, 0);
  } else {
    DrawTextBox(2, "Choose a Kindrel you want to give away.", {100, 80, 540, 330}, nullptr, DT_CENTER | DT_WORDBREAK);
  }
  widgets.DrawAll();
  EndFrame();
}
