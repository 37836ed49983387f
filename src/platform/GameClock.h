#pragma once
// The game's clock over a wall clock: the same milliseconds, or three times as many while
// the player holds fast-forward, with no jump when the speed changes. Every delay the game
// counts (frames, the timer stream, its own ticks) goes by this clock, so every tick is as
// at normal speed and only the wall clock is shorter; sounds play on the wall clock and
// keep their pitch.
#include <cstdint>

namespace platform {

class GameClock {
 public:
  static constexpr int kFastSpeed = 3;

  std::uint32_t Now(std::uint32_t wall) const { return base + (wall - wallBase) * static_cast<std::uint32_t>(speed); }
  void SetFast(bool fast, std::uint32_t wall) {
    base = Now(wall);
    wallBase = wall;
    speed = fast ? kFastSpeed : 1;
  }
  bool Fast() const { return speed != 1; }
  // The wall-clock wait in which the game's clock moves on by the given time, at least.
  std::uint32_t WallWait(std::uint32_t gameWait) const {
    return gameWait / static_cast<std::uint32_t>(speed) + (gameWait % static_cast<std::uint32_t>(speed) != 0);
  }

 private:
  std::uint32_t base = 0;
  std::uint32_t wallBase = 0;
  int speed = 1;
};

}  // namespace platform
