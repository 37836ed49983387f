#include "screens/TitleScreen.h"

#include "graphics/Blit.h"
#include "graphics/Text.h"
#include "platform/Window.h"
#include "screens/Frame.h"
#include "shell/Globals.h"

namespace {

// Sparks drift up from the title and fade as they go.
void Fade(Particle* p) {
  p->red = static_cast<std::uint8_t>(p->red * 15 / 16);
  p->green = static_cast<std::uint8_t>(p->green * 15 / 16);
  p->blue = static_cast<std::uint8_t>(p->blue * 15 / 16);
}

}  // namespace

TitleScreen::TitleScreen(std::uint32_t id, const char* name)
    : GameMode(id, name), widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  background.LoadPicture("dat\\back1.bmp");
  widgets.Add(new Button(kSparks, "Sparks: On", 64, 200, 300, 440, 330, 2));
  widgets.Add(new Button(kQuit, "Quit to Desktop", 64, 200, 350, 440, 380, 2));
  widgets.Cycle(kCycleNext);  // start on the first button
  emitter = ParticleEmitter{.colourMax = {255, 240, 140}, .colourMin = {200, 150, 40},
                            .xMin = 240, .yMin = 70, .xMax = 400, .yMax = 96,
                            .headingMax = 0.6f, .speedMax = 2.0f, .headingMin = -0.6f, .speedMin = 0.5f,
                            .lifeMax = 40, .lifeMin = 20, .update = Fade, .pool = &sparks};
}

TitleScreen::~TitleScreen() = default;

int TitleScreen::Activate() {
  Draw();
  return 1;
}

int TitleScreen::Tick(std::uint32_t) {
  if (sparksOn) {
    for (int i = 0; i < 4; ++i) emitter.Emit();
  }
  Draw();
  return 1;
}

LResult TitleScreen::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  switch (message) {
    case platform::WM_PAINT:
      Draw();
      return platform::DefWindowProc(window, message, wParam, lParam);
    case platform::WM_LBUTTONDOWN:
    case platform::WM_RBUTTONDOWN:
      if (widgets.HitTest(platform::PointX(lParam), platform::PointY(lParam)) != kHitNothing) Choose(window);
      platform::InvalidateRect(window);
      return 0;
    case platform::WM_MOUSEMOVE:
      widgets.HitTest(platform::PointX(lParam), platform::PointY(lParam));
      platform::InvalidateRect(window);
      return 0;
    case platform::WM_KEYDOWN:
      if (wParam == platform::VK_RETURN || wParam == platform::VK_SPACE) Choose(window);
      if (wParam == platform::VK_UP) widgets.Cycle(kCyclePrevious);
      if (wParam == platform::VK_DOWN) widgets.Cycle(kCycleNext);
      if (wParam == platform::VK_UP || wParam == platform::VK_DOWN) platform::InvalidateRect(window);
      return 0;
  }
  return GameMode::HandleMessage(window, message, wParam, lParam);
}

void TitleScreen::Choose(WindowHandle window) {
  if (!widgets.current) return;
  PlayClick();
  switch (widgets.current->GetId()) {
    case kSparks:
      sparksOn = !sparksOn;
      widgets.current->SetCaption(sparksOn ? "Sparks: On" : "Sparks: Off");
      break;
    case kQuit:
      platform::PostMessage(window, platform::WM_KEYDOWN, platform::VK_F12, 0);
      break;
  }
}

void TitleScreen::Draw() {
  BeginFrame();
  theDisplay->ResetClip();
  if (background.Width() > 0) {
    background.DrawOpaque(0, 0, 1);
  } else {
    theDisplay->ClearScreen(28, 35, 64);
  }
  SetTextTransparent(1);
  SetTextColour(20, 24, 48);
  DrawTextBox(3, "Quarnwick", {2, 62, 642, 100}, nullptr, DT_CENTER);
  SetTextColour(255, 230, 120);
  DrawTextBox(3, "Quarnwick", {0, 60, 640, 100}, nullptr, DT_CENTER);
  SetTextColour(230, 230, 255);
  DrawTextBox(1, "Kindrels, spells and six wizards", {0, 104, 640, 124}, nullptr, DT_CENTER);
  widgets.DrawAll();
  sparks.UpdateAndDrawAdditive();
  EndAdditive();
  SetTextColour(255, 255, 255);
  EndFrame();
}
