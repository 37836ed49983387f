#pragma once
// The program from start to end: start-up in its fixed order, the main loop that
// alternates between messages and frames, and shutdown.
#include <cstdint>
#include <functional>
#include <string>

#include "graphics/Display.h"
#include "shell/ModeStack.h"

class GameMode;

class Application {
 public:
  // The first screen of the game, made by start-up.
  using FirstScreenFactory = std::function<GameMode*()>;
  // What the game releases at shutdown, once its screens are gone and while the display
  // still exists.
  using ShutDownHook = std::function<void()>;

  Application();
  ~Application();

  // Returns 1 on success; 0 when the display could not be set up.
  int StartUp(const std::string& commandLine, const FirstScreenFactory& makeFirstScreen,
              const ShutDownHook& atShutDown = {});
  // Runs until the window is gone; returns the exit code of the quit message.
  int Run();
  // Runs for the given milliseconds of the clock; false once the loop has ended.
  bool RunFor(std::uint32_t milliseconds);
  void ShutDown();

  int ExitCode() const { return exitCode; }
  bool Ended() const { return ended; }

  // Constructed in this order, destroyed in the reverse.
  Display display;
  ModeStack modeStack;

 private:
  // One pass of the loop: a message, or a frame when one is due, or a wait.
  bool Step(std::uint32_t maxWait);

  ShutDownHook gameShutDown;
  int exitCode = 0;
  bool ended = false;
};

// Whether a frame is due at `now` after the last one at `last`: more than 33 ms have
// passed, counted across the wrap of the 32-bit millisecond count.
bool FrameIsDue(std::uint32_t now, std::uint32_t last);
// How long the loop may sleep before the next frame is due; 0 when one is due.
std::uint32_t MillisecondsToNextFrame(std::uint32_t now, std::uint32_t last);

// The random seed: the tick count, or QUARNWICK_SEED when it is set.
std::uint32_t StartingSeed();
