#include "screens/MainMenuScreen.h"

#include <cmath>
#include <numbers>

#include "creatures/PlayerRecord.h"
#include "graphics/Blit.h"
#include "persist/SavedGame.h"
#include "platform/FileDialog.h"
#include "platform/Window.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "screens/MessageScreen.h"
#include "screens/OptionsScreen.h"
#include "world/WorldMapScreen.h"
#include "shell/Globals.h"
#include "shell/Random.h"

const char* const creditsText =
    "\n\n\nWritten by the Quarnwick studio.\n"
    "Our own artists made its art.\n"
    "Thanks to Ada, Bo, Cy, Di, Eve, Flo.";

namespace {

constexpr float kPi = std::numbers::pi_v<float>;
const char* const kSpriteFiles[3] = {"dat\\flr-med-red.bmp", "dat\\flr-med-green.bmp", "dat\\flr-med-blue.bmp"};

// Sparks fade from white to nothing over their life.
void Fade(Particle* p) {
  p->red = static_cast<std::uint8_t>(p->red - 8);
  p->green = static_cast<std::uint8_t>(p->green - 8);
  p->blue = static_cast<std::uint8_t>(p->blue - 8);
}

ParticleEmitter sparkEmitter{.colourMax = {255, 255, 255}, .colourMin = {255, 255, 255}, .xMin = 0, .yMin = 0,
                             .xMax = 0, .yMax = 0, .headingMax = 2 * kPi, .speedMax = 0.2f, .headingMin = 0,
                             .speedMin = 0.2f, .lifeMax = 32, .lifeMin = 32, .update = Fade, .pool = nullptr};

}  // namespace

void ShutDownGame() { thePlayer.ReleaseParty(); }

float TurnToward(float x, float y, int targetX, int targetY, float heading, float maxTurn) {
  constexpr float kTwoPi = 2 * kPi;
  float bearing = std::atan2(static_cast<float>(targetX) - x, y - static_cast<float>(targetY));
  while (bearing < 0 && heading >= 0) bearing += kTwoPi;
  while (bearing >= 0 && heading < 0) bearing -= kTwoPi;
  while (heading - bearing > kTwoPi) bearing += kTwoPi;
  while (bearing - heading > kTwoPi) bearing -= kTwoPi;
  if (bearing - heading > kPi) bearing -= kTwoPi;
  if (bearing - heading < -kPi) bearing += kTwoPi;
  const float delta = bearing - heading;
  if (maxTurn <= 0) return bearing;
  if (delta > maxTurn) return maxTurn;
  if (-delta > maxTurn) return -maxTurn;
  return delta;
}

MainMenuScreen::MainMenuScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), buttons(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  buttons.Add(new Button(kNewGame, "Start New Game", 14, 0, 280, 640, 310, 2));
  buttons.Add(new Button(kLoadGame, "Load Game", 9, 0, 310, 640, 340, 2));
  buttons.Add(new Button(kOptions, "Gameplay Options", 16, 0, 340, 640, 370, 2));
  buttons.Add(new Button(kCredits, "Credits", 7, 0, 370, 640, 400, 2));
  buttons.Add(new Button(kQuit, "Quit to Desktop", 15, 0, 410, 640, 440, 2));
  background.LoadPicture("dat\\back1.bmp");
  for (int i = 0; i < 3; ++i) {
    Sprite& sprite = sprites[i];
    sprite.picture.LoadPicture(kSpriteFiles[i]);
    sprite.x = static_cast<float>(Rand() % 640);
    sprite.y = static_cast<float>(-sprite.picture.Height());
    sprite.heading = kPi;
  }
  sparks = std::make_unique<ParticlePool>(1000);
  sparkEmitter.pool = sparks.get();
}

MainMenuScreen::~MainMenuScreen() { sparkEmitter.pool = nullptr; }

int MainMenuScreen::Activate() {
  tune.Activate();
  Draw();
  return 1;
}

int MainMenuScreen::Deactivate() {
  tune.Deactivate();
  return 0;
}

int MainMenuScreen::Tick(std::uint32_t) {
  StepSprites();
  Draw();
  return 1;
}

LResult MainMenuScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (dialogOpen) return 0;
  // Both mouse buttons choose alike.
  AnswerMenuInput(buttons, window, message, wParam, lParam, [this, window](MenuAction) { Choose(window); });
  if (message == platform::WM_PAINT) return GameMode::HandleMessage(window, message, wParam, lParam);
  return 0;
}

void MainMenuScreen::Choose(WindowHandle window) {
  if (!buttons.current) return;
  switch (buttons.current->GetId()) {
    case kNewGame:
      NewGame();
      break;
    case kLoadGame:
      LoadGame();
      break;
    case kOptions:
      OpenAboveMenu(*this, tune, new OptionsScreen(1, "DIFF_MODE"));
      break;
    case kCredits:
      OpenAboveMenu(*this, tune, new MessageScreen(1, "INFO_MODE", creditsText, "dat\\back1.bmp"));
      break;
    case kQuit:
      PlayClick();
      platform::PostMessage(window, platform::WM_KEYDOWN, platform::VK_F12, 0);
      break;
  }
}

void MainMenuScreen::LoadGame() {
  // The dialog is modal: messages that reach the menu meanwhile are ignored.
  dialogOpen = 1;
  const auto path = platform::RunFileDialog(platform::FileDialogKind::Open, "Load Game");
  if (path && ReadSavedGame(*path)) {
    pendingScreen = new WorldMapScreen(1, "MAP_MODE");
    state = kStatePush;
  }
  dialogOpen = 0;
}

void MainMenuScreen::NewGame() {
  thePlayer.StartNewGame();
  pendingScreen = new WorldMapScreen(1, "MAP_MODE");
  state = kStatePush;
}

void MainMenuScreen::StepSprites() {
  frameCounter += 1;
  for (Sprite& s : sprites) {
    s.x += std::sin(s.heading) * 4.0f;
    s.y -= std::cos(s.heading) * 4.0f;
    s.heading += TurnToward(s.x, s.y, static_cast<int>(s.targetX), static_cast<int>(s.targetY), s.heading, 0.1f);
    sparkEmitter.xMin = sparkEmitter.xMax = static_cast<int>(s.x);
    sparkEmitter.yMin = sparkEmitter.yMax = static_cast<int>(s.y);
    sparkEmitter.Emit();
    if (frameCounter % 15 == 0) {
      s.targetX = static_cast<float>(Rand() % 640);
      s.targetY = static_cast<float>(80 + Rand() % 30);
    }
  }
}

void MainMenuScreen::Draw() {
  BeginFrame();
  background.DrawOpaque(0, 0, 1);
  buttons.DrawAll();
  sparks->UpdateAndDrawAdditive();
  for (Sprite& s : sprites) s.picture.DrawAdditive(static_cast<int>(s.x), static_cast<int>(s.y), 0);
  EndAdditive();
  EndFrame();
}
