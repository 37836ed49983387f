#include "screens/CreatureInfoScreen.h"

#include <string>
#include <utility>

#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "screens/PartyBoxes.h"
#include "screens/Tiling.h"
#include "shell/Globals.h"
#include "shell/TextFormat.h"

namespace {

Kindrel* InSlot(int slot) { return slot >= 0 && slot < kPartySize ? thePlayer.party[slot].get() : nullptr; }

// A condition is YES while its counter is below 0; a modifier shows its value.
std::string StatusValues(const Kindrel& k) {
  std::string text;
  for (int i = 0; i < kStatusEffectCount; ++i) {
    const float v = k.status[i];
    if (i <= Slow) text += v < 0 ? "YES\n" : "NO\n";
    else if (v < 0) text += Format("%1.1f\n", static_cast<double>(v));
    else if (v == 0) text += "NORMAL\n";
    else text += Format("+%d\n", static_cast<int>(v));
  }
  return text;
}

}  // namespace

void InspectSlot(GameMode& screen, int slot, int withSwap) {
  if (!InSlot(slot)) return;
  pendingScreen = new CreatureInfoScreen(1, "INSPECT_MODE", slot, withSwap);
  screen.state = kStatePush;
}

CreatureInfoScreen::CreatureInfoScreen(std::uint32_t id, const char* name, int slot, int withSwap)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)), selectedSlot(slot) {
  AddPartyBoxes(widgets, kFirstBox);
  if (withSwap == 1) widgets.Add(new Button(kSwap, "SWAP", 64, 540, 310, 640, 340, 2));
  widgets.Add(new Button(kExit, "EXIT", 64, 540, 340, 640, 370, 2));
  nameField = new Box(kNameField, "X", " ", 63, 20, 20, 205, 120, 2);
  nameField->editable = 1;
  widgets.Add(nameField);
  if (InSlot(slot)) nameField->SetCaption(InSlot(slot)->name);
  background.LoadPicture("dat\\home-back.bmp");
  frame.LoadPicture("dat\\outline2.bmp");
}

CreatureInfoScreen::~CreatureInfoScreen() = default;

int CreatureInfoScreen::Activate() {
  Draw();
  return 1;
}

int CreatureInfoScreen::Deactivate() {
  StoreName();
  return 0;
}

int CreatureInfoScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult CreatureInfoScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_CHAR) {
    widgets.TypeChar(static_cast<int>(wParam));
    platform::InvalidateRect(window);
  } else if (message == platform::WM_TIMER) {
    ++blinkCounter;
  }
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this](MenuAction) { Choose(); });
  return 0;
}

void CreatureInfoScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kExit) {
    PlayClick();
    pendingScreen = nullptr;
    state = kStateLeave;
  } else if (id == kSwap) {
    if (InSlot(selectedSlot)) swapArmed = 1;
  } else if (id >= kFirstBox && id < kFirstBox + kPartySize) {
    ChooseBox(id - kFirstBox);
  }
}

void CreatureInfoScreen::ChooseBox(int slot) {
  if (swapArmed) {
    StoreName();
    if (selectedSlot >= 0 && selectedSlot < kPartySize) std::swap(thePlayer.party[selectedSlot], thePlayer.party[slot]);
    swapArmed = 0;
  } else if (slot != selectedSlot) {
    StoreName();
  }
  selectedSlot = slot;
  ShowName(slot);
}

void CreatureInfoScreen::StoreName() {
  if (Kindrel* shown = InSlot(selectedSlot)) shown->SetName(nameField->Caption());
}

void CreatureInfoScreen::ShowName(int slot) { nameField->SetCaption(InSlot(slot) ? InSlot(slot)->name : " "); }

void CreatureInfoScreen::Draw() {
  BeginFrame();
  TilePicture(background);
  DrawPartyBoxes(frame);
  DrawDetails();
  widgets.DrawAll();
  EndFrame();
}

void CreatureInfoScreen::DrawDetails() {
  const Kindrel* k = InSlot(selectedSlot);
  if (!k) return;
  const SpeciesInfo& s = *k->species;
  if (k->picture) k->picture->DrawKeyed(80, 130, 0);
  SetTextTransparent(1);
  SetTextColour(255, 255, 255);
  DrawTextBox(2, "BASICS", {180, 10, 390, 370}, nullptr, 0);
  DrawTextBox(8, "Hit Points:\nLevel:\nExperience:\nNext Level:\nToughness:\nSpeed:\nSmarts:\n", {180, 38, 390, 370},
              nullptr, DT_WORDBREAK);
  const std::string values = Format("%d/%d\n%d\n%d\n%d\n", k->hitPoints, s.toughness * k->level, k->level,
                                    static_cast<int>(k->experience), k->level * k->level * 10) +
                             Format("%d\n%d\n%d\n", s.toughness, s.speed, s.smarts);
  DrawTextBox(8, values.c_str(), {270, 38, 390, 370}, nullptr, DT_WORDBREAK);
  if (!swapArmed) {
    DrawTextBox(2, "STATUS", {100, 200, 640, 370}, nullptr, 0);
    DrawTextBox(8, "Paralyzed:\nPoisoned:\nSlow:\nAccuracy:\nDefense:\nOffense:\nSpeed:\n", {100, 228, 640, 370},
                nullptr, DT_WORDBREAK);
    DrawTextBox(8, StatusValues(*k).c_str(), {220, 228, 640, 370}, nullptr, DT_WORDBREAK);
    DrawTextBox(2, "RESISTANCE", {340, 200, 640, 370}, nullptr, 0);
    std::string resist;
    for (float r : s.resistance) resist += Format("%3.0f%%\n", static_cast<double>(r * 100));
    DrawTextBox(8, resist.c_str(), {340, 228, 410, 370}, nullptr, DT_RIGHT | DT_WORDBREAK);
  }
  DrawTextBox(2, "SPELLS", {400, 10, 640, 370}, nullptr, 0);
  std::string spells;
  for (int i = 0; i < k->spellsKnown && i < 5; ++i) spells += Format("%s\n", k->SpellInSlot(i).name);
  DrawTextBox(8, spells.c_str(), {400, 38, 640, 370}, nullptr, DT_WORDBREAK);
  DrawTextBox(0, Format("A %s-type Kindrel\n", s.name).c_str(), {20, 45, 205, 145}, nullptr, DT_WORDBREAK);
  if (swapArmed) {
    SetTextColour(255, 255, 0);
    DrawTextBox(2, Format("Click on the Kindrel to change places with %s.", k->name).c_str(), {0, 260, 640, 290},
                nullptr, DT_CENTER);
    SetTextColour(255, 255, 255);
  }
}
