#pragma once
// The procedure that receives every message of the window: it hands the message to the
// top screen, carries out the screen's request to change screens, and then handles the
// game-wide keys (M mutes, F11 lets the next key through, F12 quits), the mouse pointer
// and the timer.
#include "shell/GameMode.h"

LResult WindowProcedure(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam);
