#pragma once
// The Temple of Knowledge teaches the player how to play: each visit shows the next topic
// of the help file help.dat (screens/HelpFile.h), "Learn More" moves on to the next one at
// once, and after the last topic the first comes again. Like the home, it shows the party
// and opens a Kindrel's page from its box.
#include <cstdint>

#include "audio/SoundEffect.h"
#include "graphics/Picture.h"
#include "screens/HelpFile.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

// The number of the next topic the temple shows. It lives for the program's run: 0 at
// start, neither saved with a game nor reset by a new or loaded one.
extern std::int32_t helpTopicIndex;

class TempleScreen : public GameMode {
 public:
  TempleScreen(std::uint32_t id, const char* name);
  ~TempleScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kExit = 0, kLearnMore = 1, kFirstBox = 2 };

  ObjectList widgets;
  Picture background;
  Picture frame;
  SoundEffect* fanfare = nullptr;
  HelpText topicText = {};

 private:
  void NextTopic();
  void Choose();
  void Draw();
};
