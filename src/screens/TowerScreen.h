#pragma once
// A wizard's tower: the wizard and a greeting, the party strip, and "Battle!" against
// the wizard's fixed team. After the battle the wizard speaks again and the button leaves
// the tower; a won battle marks the wizard beaten and opens the next tier of the island.
#include "graphics/Picture.h"
#include "screens/PlaceScreen.h"

inline constexpr int kTowerCount = 6;
// Each tower's team, by position: species index (-1: no one; only at the end) and level.
extern const int wizardTeamSpecies[kTowerCount][6];
extern const int wizardTeamLevels[kTowerCount][6];
extern const char wizardPictures[kTowerCount][64];

// A place without a fanfare: the party boxes have the ids 1..6, "Battle!" the id 0.
class TowerScreen : public PlaceScreen {
 public:
  TowerScreen(std::uint32_t id, const char* name, int towerIndex);
  ~TowerScreen() override;

  int Activate() override;

  // What the wizard says now.
  const char* Speech() const;

  Picture wizardPicture;
  int fought = 0;
  int towerIndex;

 private:
  void Choose() override;
  void StartBattle();
  void DrawScenery() override;
  void DrawPlace() override;
};
