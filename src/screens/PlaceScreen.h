#pragma once
// What the island's places (home, market, temple and the wizards' towers) share: the tiled
// floor, the party strip with its boxes, the place's fanfare when the player comes in, and
// the widget list answered like a menu. Each place adds its buttons, its own drawing and
// its choices.
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

struct SoundEffect;

class PlaceScreen : public GameMode {
 public:
  // The party box of slot k gets the id firstBox + k. A place without a fanfare passes null.
  PlaceScreen(std::uint32_t id, const char* name, const char* backgroundFile, const char* fanfareFile, int firstBox);
  ~PlaceScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  ObjectList widgets;
  Picture background;
  Picture frame;
  SoundEffect* fanfare = nullptr;

 protected:
  // The current widget was chosen.
  virtual void Choose() = 0;
  // What stands on the floor behind the party strip; nothing by default.
  virtual void DrawScenery() {}
  // The place's own text and pictures, in white text over the floor and the strip.
  virtual void DrawPlace() = 0;
  // The click, and back to the map.
  void Leave();
  // The box of a slot with a Kindrel opens its page (with SWAP). False when the id is no box.
  bool InspectBox(int id);
  int BoxSlot(int id) const;

 private:
  void Draw();
  int firstBox;
};
