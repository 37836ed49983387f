#pragma once
// The application's globals: they live for the whole run.
#include <cstdint>

class GameMode;
class MousePointer;
struct SoundEffect;

extern GameMode* currentScreen;  // the top of the screen stack, or null
extern GameMode* pendingScreen;  // a new screen waiting to be pushed, or null
extern std::uint32_t lastFrameTime;
extern int windowedSwitch;
extern int effectsVolume;  // master volume of the sound effects, 0 when muted
extern int mutedVolume;    // the volume kept while muted
extern int shortcutSkip;   // F11 makes the next key skip the shortcuts
extern SoundEffect* clickSound;
extern MousePointer* theMousePointer;
// Set by an event screen as it goes: 1 when the player may stay on the event's cell.
extern int stayOnEventCell;
// Set by the pause menu's "Quit Game": the world map leaves at its next message, back to
// the main menu.
extern int gameQuitRequest;
