#pragma once
// The first screen of the game: the menu background, five buttons and three coloured
// sprites that wander across the top trailing white sparks, with the menu tune. Starting
// a game pushes the world map above it.
#include <memory>

#include "graphics/Particles.h"
#include "graphics/Picture.h"
#include "screens/MenuTune.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

// The turn from heading toward the target, at most maxTurn either way; with maxTurn 0 or
// less, the absolute bearing of the target. Headings: 0 points up, pi/2 to the right.
float TurnToward(float x, float y, int targetX, int targetY, float heading, float maxTurn);

// The credits shown by the main menu.
extern const char* const creditsText;

// The game's own part of the shutdown, for the shell to run once the screens are gone:
// the party's pictures go while the display still exists.
void ShutDownGame();

class MainMenuScreen : public GameMode {
 public:
  MainMenuScreen(std::uint32_t id, const char* name);
  ~MainMenuScreen() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  enum ButtonId { kNewGame = 0, kLoadGame = 1, kOptions = 2, kCredits = 3, kQuit = 4 };
  struct Sprite {
    Picture picture;
    float x = 0, y = 0;
    float targetX = 150, targetY = 150;
    float heading = 0;
  };

  ObjectList buttons;
  Picture background;
  Sprite sprites[3];
  int frameCounter = 0;
  MenuTune tune;
  int dialogOpen = 0;
  std::unique_ptr<ParticlePool> sparks;

 private:
  void Choose(WindowHandle window);
  void NewGame();
  void LoadGame();
  void StepSprites();
  void Draw();
};
