#include "screens/TempleScreen.h"

#include "graphics/Text.h"

std::int32_t helpTopicIndex = 0;

TempleScreen::TempleScreen(std::uint32_t id, const char* name)
    : PlaceScreen(id, name, "dat\\temple-back.bmp", "dat\\fanfare7.wav", kFirstBox) {
  widgets.Add(new Button(kExit, "Exit", 64, 320, 310, 520, 340, 2));
  widgets.Add(new Button(kLearnMore, "Learn More", 64, 120, 310, 320, 340, 2));
  NextTopic();
}

// The topic numbered helpTopicIndex (the first again after the last), and the number moves on.
void TempleScreen::NextTopic() {
  ReadHelpTopic(helpTopicIndex, topicText);
  ++helpTopicIndex;
}

void TempleScreen::Choose() {
  if (!widgets.current) return;
  const int id = static_cast<int>(widgets.current->GetId());
  if (id == kExit) Leave();
  else if (id == kLearnMore) NextTopic();
  else InspectBox(id);
}

void TempleScreen::DrawPlace() { DrawTextBox(2, topicText, {100, 80, 540, 300}, nullptr, DT_CENTER | DT_WORDBREAK); }
