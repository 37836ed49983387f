#include "screens/TempleScreen.h"

#include "creatures/PartyStrip.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"

std::int32_t helpTopicIndex = 0;

TempleScreen::TempleScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  fanfare = LoadSound(0, "dat\\fanfare7.wav");
  PlaySound(0, fanfare);
  for (int k = 0; k < kPartySize; ++k) {
    const Rect box = PartyBoxRect(k);
    widgets.Add(new MonsterBox(kFirstBox + k, "MonsterBox", "dat\\mapModeOutline.bmp", box.left, box.top, box.right,
                               box.bottom));
  }
  widgets.Add(new Button(kExit, "Exit", 64, 320, 310, 520, 340, 2));
  widgets.Add(new Button(kLearnMore, "Learn More", 64, 120, 310, 320, 340, 2));
  background.LoadPicture("dat\\temple-back.bmp");
  frame.LoadPicture("dat\\outline2.bmp");
  NextTopic();
}

TempleScreen::~TempleScreen() { FreeSound(fanfare); }

int TempleScreen::Activate() {
  Draw();
  return 1;
}

int TempleScreen::Deactivate() { return 0; }

int TempleScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult TempleScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this] { Choose(); });
  return 0;
}

// The topic numbered helpTopicIndex (the first again after the last), and the number moves on.
void TempleScreen::NextTopic() {
  ReadHelpTopic(helpTopicIndex, topicText);
  ++helpTopicIndex;
}

void TempleScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kExit) {
    PlayClick();
    pendingScreen = nullptr;
    state = kStateLeave;
  } else if (id == kLearnMore) {
    NextTopic();
  } else if (id >= kFirstBox && id < kFirstBox + kPartySize && thePlayer.party[id - kFirstBox]) {
    pendingScreen = new CreatureInfoScreen(1, "INSPECT_MODE", id - kFirstBox, 1);
    state = kStatePush;
  }
}

void TempleScreen::Draw() {
  BeginFrame();
  TilePicture(background);
  DrawPartyFrames(frame);
  drawPartyStrip(-1);
  SetTextColour(255, 255, 255);
  SetTextTransparent(1);
  DrawTextBox(2, topicText, {100, 80, 540, 300}, nullptr, DT_CENTER | DT_WORDBREAK);
  widgets.DrawAll();
  EndFrame();
}
