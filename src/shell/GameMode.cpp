#include "shell/GameMode.h"

#include "platform/Window.h"

GameMode::GameMode(std::uint32_t id, const char* name) : ScreenObject(id, name) {}

GameMode::~GameMode() = default;

int GameMode::HookC() { return 0; }

int GameMode::Activate() { return 0; }

int GameMode::Deactivate() { return 0; }

int GameMode::Tick(std::uint32_t) { return 0; }

LResult GameMode::HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) {
  return platform::DefWindowProc(window, message, wParam, lParam);
}
