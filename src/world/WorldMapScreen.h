#pragma once
// The island: every open place with its picture, the name of the place under the pointer,
// a drifting cloud, the party strip and "Options". A click opens the place. It is the hub
// of a game and leaves only when the pause menu asks the game to quit.
#include <memory>

#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"
#include "world/LocationTable.h"

struct SoundEffect;

class WorldMapScreen : public GameMode {
 public:
  WorldMapScreen(std::uint32_t id, const char* name);
  ~WorldMapScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // The open place within 20 pixels of the point: the first row in table order, or with
  // `last` the last such row; null when none is near.
  static LocationInfo* PlaceNear(int x, int y, bool last);

  ObjectList widgets;
  Picture background;
  Picture frame;
  Picture cloud;
  SoundEffect* ambient = nullptr;
  LocationInfo* hovered = nullptr;
  Picture kindPictures[8];
  int revealed = 0;
  int cloudX = 0;

 private:
  void ClickPlace(int x, int y);
  void WidgetAction();
  void Push(GameMode* screen);
  void Draw();
  void Reveal(std::unique_ptr<Surface> previous);
};
