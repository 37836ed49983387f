#include "screens/PauseMenuScreen.h"

#include "persist/SavedGame.h"
#include "platform/FileDialog.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "screens/OptionsScreen.h"
#include "shell/Globals.h"

PauseMenuScreen::PauseMenuScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), buttons(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  buttons.Add(new Button(kContinueGame, "Continue Game", 64, 0, 280, 640, 310, 2));
  buttons.Add(new Button(kSaveGame, "Save Game", 64, 0, 310, 640, 340, 2));
  buttons.Add(new Button(kOptions, "Gameplay Options", 64, 0, 340, 640, 370, 2));
  buttons.Add(new Button(kQuitGame, "Quit Game", 64, 0, 410, 640, 440, 2));
  background.LoadPicture("dat\\back1.bmp");
}

PauseMenuScreen::~PauseMenuScreen() = default;

int PauseMenuScreen::Activate() {
  tune.Activate();
  gameQuitRequest = 0;
  Draw();
  return 1;
}

int PauseMenuScreen::Deactivate() {
  tune.Deactivate();
  return 0;
}

LResult PauseMenuScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (dialogOpen) return 0;
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(buttons, window, message, wParam, lParam, [this](MenuAction) { Choose(); });
  return 0;
}

void PauseMenuScreen::Choose() {
  if (!buttons.current) return;
  switch (buttons.current->GetId()) {
    case kContinueGame:
      Leave();
      break;
    case kSaveGame: {
      dialogOpen = 1;
      const auto path = platform::RunFileDialog(platform::FileDialogKind::Save, "Save Game");
      dialogOpen = 0;
      // A completed save goes back to the map; a failed one has said why and stays here.
      if (path && WriteSavedGame(*path)) Leave();
      break;
    }
    case kOptions:
      OpenAboveMenu(*this, tune, new OptionsScreen(1, "DIFF_MODE"));
      break;
    case kQuitGame:
      gameQuitRequest = 1;
      Leave();
      break;
  }
}

void PauseMenuScreen::Leave() {
  pendingScreen = nullptr;
  state = kStateLeave;
}

void PauseMenuScreen::Draw() {
  BeginFrame();
  background.DrawOpaque(0, 0, 1);
  buttons.DrawAll();
  EndFrame();
}
