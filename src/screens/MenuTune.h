#pragma once
// The looping tune of the main and pause menus, kept playing while the options or the
// credits are open above the menu.
class GameMode;
struct SoundEffect;

class MenuTune {
 public:
  ~MenuTune();
  // On activation: starts the tune unless it was kept; the keep is used up either way.
  void Activate();
  // On deactivation: stops the tune unless it is to be kept.
  void Deactivate();

  SoundEffect* music = nullptr;
  int keepMusic = 0;
};

// The click, and the screen goes above the menu with the tune playing on under it.
void OpenAboveMenu(GameMode& menu, MenuTune& tune, GameMode* screen);
