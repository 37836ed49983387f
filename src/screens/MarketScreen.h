#pragma once
// The island's market, where the player gives a Kindrel away to make room in the party:
// pick a Kindrel by its box, answer the question with "Give Away", and it is gone for
// good, with nothing in return. The last Kindrel of the party is never given away.
#include <cstdint>

#include "audio/SoundEffect.h"
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class MarketScreen : public GameMode {
 public:
  MarketScreen(std::uint32_t id, const char* name);
  ~MarketScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // The party box of slot k has the id kFirstBox + k.
  enum WidgetId { kDone = 0, kGiveAway = 1, kFirstBox = 2 };
  static constexpr std::int32_t kNoSlot = 6;

  ObjectList widgets;
  Picture background;
  Picture frame;
  SoundEffect* fanfare = nullptr;
  // The party slot picked for giving away, or kNoSlot. It may name an empty slot: after a
  // Kindrel has been given away, or when the box of an empty slot was clicked.
  std::int32_t chosenSlot = kNoSlot;

 private:
  void Choose();
  void GiveAway();
  void Draw();
};
