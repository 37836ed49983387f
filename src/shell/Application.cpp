#include "shell/Application.h"

#include <cstdlib>

#include "audio/SoundEffect.h"
#include "graphics/CrossFade.h"
#include "graphics/Text.h"
#include "platform/FrameUploader.h"
#include "platform/Window.h"
#include "shell/CommandLine.h"
#include "shell/Globals.h"
#include "shell/Random.h"
#include "shell/WindowProcedure.h"
#include "ui/MousePointer.h"

namespace {

constexpr std::uint32_t kFrameGap = 33;  // a frame runs when more than this has passed
constexpr std::uint32_t kLongestWait = 1000;

}  // namespace

Application::Application() = default;

Application::~Application() {
  currentScreen = nullptr;
  pendingScreen = nullptr;
}

bool FrameIsDue(std::uint32_t now, std::uint32_t last) { return now - last > kFrameGap; }

std::uint32_t MillisecondsToNextFrame(std::uint32_t now, std::uint32_t last) {
  const std::uint32_t since = now - last;
  return since > kFrameGap ? 0 : kFrameGap + 1 - since;
}

std::uint32_t StartingSeed() {
  if (const char* fixed = std::getenv("QUARNWICK_SEED"); fixed && *fixed) {
    return static_cast<std::uint32_t>(std::strtoul(fixed, nullptr, 0));
  }
  return platform::GetTickCount();
}

int Application::StartUp(const std::string& commandLine, const FirstScreenFactory& makeFirstScreen,
                         const ShutDownHook& atShutDown) {
  gameShutDown = atShutDown;
  windowedSwitch = ParseCommandLine(commandLine).windowed;
  currentScreen = nullptr;
  pendingScreen = nullptr;
  platform::SetWindowProcedure(WindowProcedure);
  if (!display.InitDisplay(640, 480, 16, windowedSwitch ? kModeWindowed : kModeCopy)) {
    ended = true;
    return 0;
  }
  display.ResetClip();
  display.ClearScreen(0, 0, 0);
  CreateGameFonts(display);
  SetTextColour(255, 255, 255);
  SetTextBackColour(0, 0, 40);
  SetTextTransparent(1);
  OpenSoundOutput(platform::kMainWindow);
  SeedRandom(StartingSeed());
  lastFrameTime = platform::GetTickCount();
  clickSound = LoadSound(0, "dat\\button2.wav");
  effectsVolume = 100;
  mutedVolume = 0;
  shortcutSkip = 0;
  theMousePointer = new MousePointer();
  // The system arrow shows until the mouse first moves over the window; from then on the
  // game's own pointer is the only one.
  platform::SetSystemCursorVisible(true);
  PrepareFade();
  BuildFadeTable();
  GameMode* first = makeFirstScreen();
  currentScreen = first;
  modeStack.Push(first);
  first->Activate();
  return 1;
}

bool Application::Step(std::uint32_t maxWait) {
  platform::Message message;
  if (platform::PeekMessage(&message)) {
    if (!platform::GetMessage(&message)) {
      exitCode = static_cast<int>(message.wParam);
      ended = true;
      return false;
    }
    platform::DispatchMessage(message);
    return true;
  }
  if (currentScreen && FrameIsDue(platform::GetTickCount(), lastFrameTime)) {
    lastFrameTime = platform::GetTickCount();
    currentScreen->Tick(lastFrameTime);
    return true;
  }
  // Nothing to do: show what was drawn, then sleep until the next frame, timer or input.
  platform::RefreshWindow();
  std::uint32_t wait = kLongestWait;
  if (currentScreen) wait = MillisecondsToNextFrame(platform::GetTickCount(), lastFrameTime);
  if (const std::uint32_t timer = platform::MillisecondsToNextTimer(); timer < wait) wait = timer;
  if (maxWait < wait) wait = maxWait;
  platform::WaitForInput(wait);
  return true;
}

int Application::Run() {
  while (!ended && Step(kLongestWait)) {
  }
  return exitCode;
}

bool Application::RunFor(std::uint32_t milliseconds) {
  const std::uint32_t start = platform::GetTickCount();
  while (!ended) {
    const std::uint32_t elapsed = platform::GetTickCount() - start;
    if (elapsed >= milliseconds) return true;
    if (!Step(milliseconds - elapsed)) return false;
  }
  return false;
}

void Application::ShutDown() {
  currentScreen = modeStack.Top();
  if (currentScreen) currentScreen->Deactivate();
  while (GameMode* top = modeStack.Pop()) delete top;
  currentScreen = nullptr;
  if (gameShutDown) gameShutDown();
  delete theMousePointer;
  theMousePointer = nullptr;
  FreeSound(clickSound);
  clickSound = nullptr;
  CloseSoundOutput();
}
