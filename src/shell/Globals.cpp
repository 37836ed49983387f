#include "shell/Globals.h"

GameMode* currentScreen = nullptr;
GameMode* pendingScreen = nullptr;
std::uint32_t lastFrameTime = 0;
int windowedSwitch = 0;
int effectsVolume = 100;
int mutedVolume = 0;
int shortcutSkip = 0;
SoundEffect* clickSound = nullptr;
MousePointer* theMousePointer = nullptr;
int stayOnEventCell = 1;
int gameQuitRequest = 0;
