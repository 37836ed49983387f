#include "screens/HomeScreen.h"

#include "creatures/PartyStrip.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"

namespace {

constexpr const char* kRestText =
    "You and your Kindrels spend the night resting at home, and everyone wakes up fully healed.";

}  // namespace

HomeScreen::HomeScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  fanfare = LoadSound(0, "dat\\fanfare8.wav");
  PlaySound(0, fanfare);
  for (int k = 0; k < kPartySize; ++k) {
    const Rect box = PartyBoxRect(k);
    widgets.Add(new MonsterBox(kFirstBox + k, "MonsterBox", "dat\\mapModeOutline.bmp", box.left, box.top, box.right,
                               box.bottom));
  }
  widgets.Add(new Button(kExit, "EXIT", 64, 220, 350, 420, 370, 2));
  background.LoadPicture("dat\\home-back.bmp");
  frame.LoadPicture("dat\\outline2.bmp");
  // One visit, one night's rest: coming back from a Kindrel's page does not heal again.
  thePlayer.HealParty();
}

HomeScreen::~HomeScreen() { FreeSound(fanfare); }

int HomeScreen::Activate() {
  Draw();
  return 1;
}

int HomeScreen::Deactivate() { return 0; }

int HomeScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult HomeScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this] { Choose(); });
  return 0;
}

void HomeScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kExit) {
    PlayClick();
    pendingScreen = nullptr;
    state = kStateLeave;
  } else if (id >= kFirstBox && id < kFirstBox + kPartySize && thePlayer.party[id - kFirstBox]) {
    pendingScreen = new CreatureInfoScreen(1, "INSPECT_MODE", id - kFirstBox, 1);
    state = kStatePush;
  }
}

void HomeScreen::Draw() {
  BeginFrame();
  TilePicture(background);
  DrawPartyFrames(frame);
  drawPartyStrip(-1);
  SetTextColour(255, 255, 255);
  SetTextTransparent(1);
  DrawTextBox(2, kRestText, {100, 80, 540, 330}, nullptr, DT_CENTER | DT_WORDBREAK);
  widgets.DrawAll();
  EndFrame();
}
