#pragma once
// A whole game on the headless backend: start-up, the real message loop driven by the
// manual clock, and shutdown. Tests feed input through `backend` and read state, texts
// and pixels.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "creatures/PlayerRecord.h"
#include "graphics/Display.h"
#include "platform/HeadlessBackend.h"
#include "platform/Window.h"
#include "shell/Application.h"
#include "shell/GameMode.h"
#include "shell/Globals.h"

class HeadlessGame {
 public:
  // Most tests run silent, without a sound device (and so without the click sound's file);
  // tests of sounds ask for the device.
  enum class Sound { Off, On };

  explicit HeadlessGame(Application::FirstScreenFactory first, const std::string& commandLine = "-F",
                        Sound sound = Sound::Off) {
    backend.SetAudioPresent(sound == Sound::On);
    platform::InstallBackend(&backend);
    application = std::make_unique<Application>();
    started = application->StartUp(commandLine, first);
  }
  ~HeadlessGame() {
    if (started && !shutDown) application->ShutDown();
    application.reset();
    platform::InstallBackend(nullptr);
  }
  void ShutDown() {
    application->ShutDown();
    shutDown = true;
  }
  bool RunFor(std::uint32_t ms) { return application->RunFor(ms); }
  // Input, then the game runs for a while.
  void Key(std::uint32_t key, std::uint32_t ms = 100) { backend.KeyPress(key); RunFor(ms); }
  void Click(int x, int y, std::uint32_t ms = 100) { backend.LeftClick(x, y); RunFor(ms); }
  void RightClick(int x, int y, std::uint32_t ms = 100) { backend.RightClick(x, y); RunFor(ms); }
  void Type(const std::string& text) { backend.TypeText(text); RunFor(100); }
  // Puts the screen above the current one, as a request of the current one does.
  void Push(GameMode* screen, std::uint32_t ms = 100) {
    pendingScreen = screen;
    currentScreen->state = kStatePush;
    RunFor(ms);
  }
  Display& display() { return application->display; }

  platform::HeadlessBackend backend;
  std::unique_ptr<Application> application;
  int started = 0;
  bool shutDown = false;
};

// Puts the game's record back as a fresh program has it, for the next test: the options,
// the party, the items, beaten wizards and open places, and the levels set for a combat.
inline void ResetGameRecord() {
  thePlayer.NewGameReset();
  thePlayer.ClearItems();
  thePlayer.difficulty = kNormal;
  thePlayer.textSpeed = 5;
  thePlayer.playerIsMale = 1;
  for (SpeciesInfo& row : speciesTable) row.encounterLevel = 0;
}

// The names of the items the record holds, in their order.
inline std::vector<std::string> ItemNames(PlayerRecord& record) {
  std::vector<std::string> names;
  for (ScreenObject* item = record.items.First(); item; item = record.items.Next()) names.push_back(item->GetName());
  return names;
}

// The message boxes shown so far, each as its text, its caption and whether it has the
// error icon.
using ShownBox = std::tuple<std::string, std::string, bool>;
inline std::vector<ShownBox> Boxes(const platform::HeadlessBackend& backend) {
  std::vector<ShownBox> boxes;
  for (const auto& b : backend.MessageBoxes()) boxes.emplace_back(b.text, b.caption, b.errorIcon);
  return boxes;
}

// A game that shows an idle screen in full-screen mode, for tests that draw on its display
// (drawing goes to the back buffer, cleared to black).
class IdleGameTest : public ::testing::Test {
 protected:
  void SetUp() override {
    game = std::make_unique<HeadlessGame>([] { return new GameMode(1, "IDLE"); }, "");
    ASSERT_EQ(game->started, 1);
    target = theDisplay->DrawTarget();
    theDisplay->ClearScreen(0, 0, 0);
  }
  void TearDown() override { game.reset(); }
  std::unique_ptr<HeadlessGame> game;
  Surface* target = nullptr;
};

// A screen that writes down what the shell does to it.
class ProbeScreen : public GameMode {
 public:
  ProbeScreen(const char* name, std::vector<std::string>* log) : GameMode(1, name), events(log) {}
  ~ProbeScreen() override { Note("delete"); }
  int Activate() override {
    Note("activate");
    return 1;
  }
  int Deactivate() override {
    Note("deactivate");
    return 0;
  }
  int Tick(std::uint32_t now) override {
    ticks.push_back(now);
    return 1;
  }
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override {
    messages.push_back(message);
    if (onMessage) onMessage(message, wParam, lParam);
    return GameMode::HandleMessage(window, message, wParam, lParam);
  }
  void Note(const std::string& what) { events->push_back(std::string(GetName()) + " " + what); }

  std::vector<std::string>* events;
  std::vector<std::uint32_t> ticks;
  std::vector<std::uint32_t> messages;
  std::function<void(std::uint32_t, WParam, LParam)> onMessage;
};
