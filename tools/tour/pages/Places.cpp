// Tour pages of the island's places: the home after a night's rest, the market asking
// whether to give a Kindrel away, and the temple with its first lesson and with its
// longest one, the lesson that needs the most room.
#include <cstdio>
#include <string>
#include <utility>

#include "ShowcaseParty.h"
#include "Tour.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Display.h"
#include "graphics/Text.h"
#include "platform/Font.h"
#include "screens/HelpFile.h"
#include "screens/HomeScreen.h"
#include "screens/MarketScreen.h"
#include "screens/TempleScreen.h"
#include "shell/Globals.h"

namespace {

void Hover(TourGame& game, int x, int y) {
  game.backend.MouseMove(x, y);
  game.RunFor(300);
}

// The showcase party, hurt and fainted as it is, goes home and wakes up healed.
TourPage home("home", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  return new HomeScreen(1, "HEAL MODE");
}, [](TourGame& game) { Hover(game, 320, 362); });

TourPage marketQuestion("market-question", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  return new MarketScreen(1, "MARKET MODE");
}, [](TourGame& game) {
  game.backend.LeftClick(6 + 105 * 2 + 50, 420);  // the third Kindrel
  game.RunFor(100);
  Hover(game, 220, 355);  // over "Give Away"
});

TourPage temple("temple", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  helpTopicIndex = 0;
  return new TempleScreen(1, "HELP MODE");
}, [](TourGame& game) { Hover(game, 320, 200); });

// The number of the help file's topic that takes the most lines on the temple's screen
// (the most characters among those).
int LongestTopic() {
  std::string content;
  if (std::FILE* file = std::fopen(HelpFilePath().c_str(), "rb")) {
    char buffer[4096];
    for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, file)) > 0;) content.append(buffer, got);
    std::fclose(file);
  }
  platform::Font* font = theDisplay ? theDisplay->FontAt(2) : nullptr;
  int longest = 0;
  std::pair<std::size_t, std::size_t> most{0, 0};
  HelpText text;
  for (int n = 0; FindHelpTopic(content, n, text); ++n) {
    const std::size_t lines = font ? platform::LayoutText(*font, text, 440, DT_CENTER | DT_WORDBREAK).size() : 0;
    const std::pair<std::size_t, std::size_t> size{lines, std::string(text).size()};
    if (size > most) {
      most = size;
      longest = n;
    }
  }
  return longest;
}

TourPage templeLongest("temple-longest-lesson", [] {
  thePlayer.NewGameReset();
  FillShowcaseParty(thePlayer);
  helpTopicIndex = LongestTopic();
  return new TempleScreen(1, "HELP MODE");
}, [](TourGame& game) { Hover(game, 420, 325); });

}  // namespace
