#pragma once
// A wizard's tower: the wizard and a greeting, the party strip, and "Battle!" against
// the wizard's fixed team. After the battle the wizard speaks again and the button leaves
// the tower; a won battle marks the wizard beaten and opens the next tier of the island.
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

inline constexpr int kTowerCount = 6;
// Each tower's team, by position: species index (-1: no one; only at the end) and level.
extern const int wizardTeamSpecies[kTowerCount][6];
extern const int wizardTeamLevels[kTowerCount][6];
extern const char wizardPictures[kTowerCount][64];

class TowerScreen : public GameMode {
 public:
  TowerScreen(std::uint32_t id, const char* name, int towerIndex);
  ~TowerScreen() override;

  int Activate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  // What the wizard says now.
  const char* Speech() const;

  ObjectList widgets;
  Picture background;
  Picture frame;
  Picture wizardPicture;
  int fought = 0;
  int towerIndex;

 private:
  void Choose();
  void StartBattle();
  void Draw();
};
