#include "screens/OptionsScreen.h"

#include <cstdio>

#include "creatures/PlayerRecord.h"
#include "graphics/Text.h"
#include "screens/ClickSound.h"
#include "screens/Frame.h"
#include "screens/MenuInput.h"
#include "shell/Globals.h"
#include "shell/TextFormat.h"

namespace {

const char* const kDifficulties[3] = {"Difficulty: EASY", "Difficulty: NORMAL", "Difficulty: HARD"};
constexpr float kVersion = 1.01f;

// Steps a setting within low..high, wrapping round at both ends.
int Wrap(int value, int step, int low, int high) {
  value += step;
  if (value > high) return low;
  if (value < low) return high;
  return value;
}

}  // namespace

OptionsScreen::OptionsScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), buttons(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  buttons.Add(new Button(kGender, "Player is MALE", 64, 0, 310, 640, 340, 2));
  buttons.Add(new Button(kDifficulty, "Difficulty: NORMAL", 64, 0, 340, 640, 370, 2));
  buttons.Add(new Button(kTextSpeed, "Text Speed: 5", 64, 0, 370, 640, 400, 2));
  buttons.Add(new Button(kContinue, "Continue", 8, 0, 270, 640, 310, 2));
  SetCaptions();
  background.LoadPicture("dat\\back1.bmp");
}

OptionsScreen::~OptionsScreen() = default;

int OptionsScreen::Activate() {
  Draw();
  return 1;
}

LResult OptionsScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  if (message == platform::WM_PAINT) Draw();
  AnswerMenuInput(buttons, window, message, wParam, lParam,
                  [this](MenuAction action) { Choose(action == MenuAction::ChooseBackward ? -1 : 1); });
  return 0;
}

void OptionsScreen::Choose(int direction) {
  if (!buttons.current) return;
  const auto id = buttons.current->GetId();
  if (id == kContinue) {
    pendingScreen = nullptr;
    state = kStateLeave;
    return;
  }
  PlayClick();
  if (id == kGender) thePlayer.playerIsMale = Wrap(thePlayer.playerIsMale, direction, 0, 1);
  if (id == kDifficulty) thePlayer.difficulty = Wrap(thePlayer.difficulty, direction, 0, 2);
  if (id == kTextSpeed) thePlayer.textSpeed = Wrap(thePlayer.textSpeed, direction, 1, 10);
  SetCaptions();
}

void OptionsScreen::SetCaptions() {
  const int difficulty = thePlayer.difficulty >= 0 && thePlayer.difficulty <= 2 ? thePlayer.difficulty : 1;
  buttons.FindById(kDifficulty)->SetCaption(kDifficulties[difficulty]);
  buttons.FindById(kGender)->SetCaption(thePlayer.playerIsMale ? "Player is MALE" : "Player is FEMALE");
  buttons.FindById(kTextSpeed)->SetCaption(Format("Text Speed: %d", thePlayer.textSpeed).c_str());
}

void OptionsScreen::Draw() {
  BeginFrame();
  background.DrawOpaque(0, 0, 1);
  buttons.DrawAll();
  SetTextColour(255, 255, 255);
  DrawTextBox(1, Format("Version %f", static_cast<double>(kVersion)).c_str(), {0, 460, 440, 480}, nullptr, DT_CENTER);
  EndFrame();
}
