#include "world/EventScreen.h"

#include <cstring>
#include <strings.h>

#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"
#include "world/AreaFile.h"

EventScreen::EventScreen(std::uint32_t id, const char* name, MazeEvent* shown)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)), event(shown) {
  widgets.Add(new Button(0, "Continue", 64, 220, 370, 420, 395, 2));
  panel.LoadPicture("dat\\event-back.bmp");
  backdrop.CreateBlank(640, 480);
  backdrop.CaptureFrom(nullptr, {0, 0, 640, 480}, {0, 0, 640, 480});
  hasItem = 0;
  // An item matches when its name begins with the need, letter case aside.
  const std::size_t needLength = std::strlen(event->needs);
  for (ScreenObject* item = thePlayer.items.First(); item; item = thePlayer.items.Next())
    if (strncasecmp(item->GetName(), event->needs, needLength) == 0) hasItem = 1;
}

EventScreen::~EventScreen() { ApplyOutcome(); }

int EventScreen::Passed() const { return event->needs[0] == '\0' || hasItem == 1 ? 1 : 0; }

const char* EventScreen::ShownText() const { return Passed() ? event->mainText : event->needText; }

// A given item is added unless one whose name begins with it, letter case and all, is held.
void EventScreen::ApplyOutcome() {
  const int passed = Passed();
  if (event->gives[0] != '\0' && passed == 1) {
    const std::size_t length = std::strlen(event->gives);
    bool held = false;
    for (ScreenObject* item = thePlayer.items.First(); item; item = thePlayer.items.Next())
      if (std::strncmp(item->GetName(), event->gives, length) == 0) held = true;
    if (!held) thePlayer.AddItem(event->gives);
  }
  stayOnEventCell = passed;
}

int EventScreen::Activate() {
  Draw();
  return 1;
}

int EventScreen::Deactivate() { return 0; }

int EventScreen::Tick(std::uint32_t) {
  Draw();
  return 1;
}

LResult EventScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  AnswerMenuInput(widgets, window, message, wParam, lParam, [this](MenuAction) { Action(); });
  return 0;
}

void EventScreen::Action() {
  if (widgets.Cycle(kCycleStay) != 0) return;
  PlayClick();
  pendingScreen = nullptr;
  state = kStateLeave;
}

void EventScreen::Draw() {
  BeginFrame();
  backdrop.DrawOpaque(0, 0, 1);
  panel.DrawKeyed(7, 54, 1);
  SetTextColour(255, 255, 255);
  DrawTextBox(2, ShownText(), {120, 130, 520, 370}, nullptr, DT_CENTER | DT_WORDBREAK);
  widgets.DrawAll();
  EndFrame();
}
