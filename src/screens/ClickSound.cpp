#include "screens/ClickSound.h"

#include "audio/SoundEffect.h"
#include "shell/Globals.h"

void PlayClick() { PlaySound(0, clickSound); }
