#pragma once
// The pages of the screenshot tour. Each page file registers its pages with a static
// TourPage; a page sets up a game on the headless backend, drives it to the state it
// shows, and leaves the frame to be saved.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/HeadlessBackend.h"
#include "shell/Application.h"

// A running game on the headless backend.
class TourGame {
 public:
  explicit TourGame(const Application::FirstScreenFactory& first);
  ~TourGame();
  void RunFor(std::uint32_t ms) { application.RunFor(ms); }

  platform::HeadlessBackend backend;
  Application application;
};

struct TourPage {
  using Render = std::function<void(TourGame& game)>;
  // The first screen of the game, and what to do with it before the picture is taken.
  TourPage(const char* name, const Application::FirstScreenFactory& first, Render render);

  std::string name;
  Application::FirstScreenFactory first;
  Render render;
};

std::vector<TourPage*>& TourPages();
