#pragma once
// The Temple of Knowledge teaches the player how to play: each visit shows the next topic
// of the help file help.dat (screens/HelpFile.h), "Learn More" moves on to the next one at
// once, and after the last topic the first comes again. Like the home, it shows the party
// and opens a Kindrel's page from its box.
#include <cstdint>

#include "screens/HelpFile.h"
#include "screens/PlaceScreen.h"

// The number of the next topic the temple shows. It lives for the program's run: 0 at
// start, neither saved with a game nor reset by a new or loaded one.
extern std::int32_t helpTopicIndex;

class TempleScreen : public PlaceScreen {
 public:
  TempleScreen(std::uint32_t id, const char* name);

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kExit = 0, kLearnMore = 1, kFirstBox = 2 };

  HelpText topicText = {};

 private:
  void NextTopic();
  void Choose() override;
  void DrawPlace() override;
};
