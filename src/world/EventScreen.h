#pragma once
// The text of a maze event on a panel over the frozen maze, with "Continue". An event may
// need an item: without it the need-text shows instead and the player goes back to the
// cell he or she came from. An event may give an item. The outcome is applied when the
// screen is destroyed, before the maze below is activated again.
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

class MazeEvent;

class EventScreen : public GameMode {
 public:
  // The event belongs to the maze's entries and outlives the screen.
  EventScreen(std::uint32_t id, const char* name, MazeEvent* event);
  ~EventScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // 1 when the event needs nothing or a held item matched its need.
  int Passed() const;
  // The text shown: the need-text when the needed item is missing, else the main text.
  const char* ShownText() const;

  ObjectList widgets;
  Picture panel;
  Picture backdrop;
  MazeEvent* event;
  int hasItem = 0;

 private:
  void Action();
  void Draw();
  void ApplyOutcome();
};
