#include "screens/MenuTune.h"

#include "audio/SoundEffect.h"
#include "screens/ClickSound.h"
#include "shell/GameMode.h"
#include "shell/Globals.h"

MenuTune::~MenuTune() { FreeSound(music); }

void MenuTune::Activate() {
  if (keepMusic == 0) {
    FreeSound(music);
    music = LoadSound(0, "dat\\pcmonst1.wav");
    if (music) music->loop = 1;
    PlaySound(0, music);
  }
  keepMusic = 0;
}

void MenuTune::Deactivate() {
  if (keepMusic != 0) return;
  FreeSound(music);
  music = nullptr;
}

void OpenAboveMenu(GameMode& menu, MenuTune& tune, GameMode* screen) {
  PlayClick();
  pendingScreen = screen;
  menu.state = kStatePush;
  tune.keepMusic = 1;
}
