#pragma once
// A game controller in the game's own words: it only ever makes the messages a mouse and
// a keyboard would. The left stick moves the pointer across the 640 x 480 frame (faster
// the further it is tilted, with a small dead zone); the D-pad sends the arrow keys,
// repeated while held; A is the left mouse button and B the right one at the pointer,
// held as long as the button is; X and Start send Enter, Y sends Space; Back with Start
// quits like F12.
#include <cstdint>

namespace platform {

enum class PadButton { A, B, X, Y, Back, Start, Up, Down, Left, Right, Count };

class GamepadInput {
 public:
  // The pointer is where the mouse last was, so the two can take turns.
  void MouseAt(int x, int y);
  void Button(PadButton button, bool down, std::uint32_t now);
  // The left stick, each axis -32768..32767 (down and right positive).
  void Stick(int x, int y, std::uint32_t now);
  // Moves the pointer by the stick and repeats a held D-pad direction.
  void Update(std::uint32_t now);
  // True while the stick is tilted or a direction is held: Update is wanted often.
  bool Busy() const;

  float PointerX() const { return x; }
  float PointerY() const { return y; }

 private:
  void Key(std::uint32_t virtualKey, bool down);
  void Mouse(std::uint32_t message);
  std::uint32_t Buttons() const;

  float x = 320.0f, y = 240.0f;
  int stickX = 0, stickY = 0;
  std::uint32_t lastUpdate = 0;
  bool held[static_cast<int>(PadButton::Count)] = {};
  int repeatingKey = 0;  // the arrow key of the D-pad direction held, or 0
  std::uint32_t nextRepeat = 0;
};

}  // namespace platform
