#pragma once
// The screen on which one combat is fought: the player's active party creature against a
// list of one to six opponents, met one after the other. A wild area or a tower pushes it
// and reads combatResult when it has left. The combat runs as a machine of phases, each
// with a countdown in ticks; the player acts only in phase 1.
#include <cstdint>
#include <memory>
#include <string>

#include "combat/SpellSoundCache.h"
#include "creatures/Kindrel.h"
#include "graphics/Particles.h"
#include "graphics/Picture.h"
#include "shell/GameMode.h"
#include "ui/ObjectList.h"

struct SoundEffect;

// The opponents of a combat: species rows, each with its encounterLevel written by the
// caller. The combat owns the array (not the rows).
using OpponentList = SpeciesInfo**;

// How many ticks a message stays up: (15 - text speed) x 3, set when a combat is built.
extern int textDelay;
// 1 while a combat runs and after a loss, 0 after a win, 2 after a retreat.
extern int combatResult;

enum CombatPhase {
  kPhaseOpening = 0,
  kPhaseWaiting = 1,
  kPhaseAnnounce = 2,
  kPhaseFlight = 3,
  kPhaseImpact = 4,
  kPhaseActionDone = 5,
  kPhaseEnding = 6,
  kPhaseStatusShown = 7,
  kPhaseLevelUpShown = 8,
  kPhaseCatchShown = 9,
  kPhaseOpponentLeaving = 10,
};

// Widget ids.
enum CombatWidget {
  kRetreatButton = 0,
  kCatchButton = 1,
  kChangeButton = 2,
  kFirstPartyBox = 3,   // .. 8
  kFirstSpellButton = 9,  // .. 13
};

struct Projectile {
  float startX = 0, startY = 0;
  float targetX = 0, targetY = 0;
  float x = 0, y = 0;
  float covered = 0, total = 0;
};

class CombatMode : public GameMode {
 public:
  // Zero for all four coordinates gives the default positions (168, 150) and (472, 150).
  CombatMode(std::uint32_t id, const char* name, OpponentList opponents, int opponentCount,
             const char* backgroundFile, int catchAllowed, int playerX, int playerY, int opponentX, int opponentY);
  ~CombatMode() override;

  int Activate() override;
  int Deactivate() override;
  int Tick(std::uint32_t now) override;
  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wParam, LParam lParam) override;

  Kindrel* Active() const;
  bool PlayerActing() const { return actor == 1; }

  OpponentList opponentList;
  int opponentCount;
  int opponentIndex = 0;
  std::unique_ptr<Kindrel> opponent;
  int activeSlot = 0;
  int phase = kPhaseOpening;
  int countdown = 0;
  int countdownLength = 0;
  int actor = 1;  // 1: the player's creature acts; 0: the opponent
  int playerSpellSlot = 0;
  int opponentSpellSlot = 0;
  int playerActed = 0;
  int opponentActed = 0;
  int choosingReplacement = 0;
  int catchAllowed;
  int actionCounter = 0;
  int hit = 0;
  int caught = 0;
  const SpellInfo* currentSpell = nullptr;
  std::string message;
  float playerX = 168, playerY = 150, opponentX = 472, opponentY = 150;
  float playerOffsetX = 0, opponentOffsetX = 0, playerOffsetY = 0, opponentOffsetY = 0;
  Projectile projectiles[3];
  int projectileCount = 0;
  int headPicture = -1;  // which projectile head to draw in this frame, or none
  float headX = 0, headY = 0;

  ObjectList widgets;
  Picture background;
  Picture frame;
  Picture heads[15];
  SoundEffect* fanfare = nullptr;
  SoundEffect* levelUpSound = nullptr;
  SoundEffect* refusalSound = nullptr;
  SpellSoundCache spellSounds;
  std::unique_ptr<ParticlePool> particles;

 private:
  // Input and actions.
  void Act(int id);
  void ChoosePartyBox(int slot);
  void BuildSpellButtons();
  void RemoveWidget(int id);
  void Leave();

  // The phases.
  void SetCountdown(int ticks);
  void Show(const std::string& text, int ticks);
  void RunPhaseStep();
  void AnimatePhase();

  // Exchanges and turns.
  void StartExchange(bool afterFailedCatch);
  void StartTurn(bool playCastSound);
  void Announce();
  void StatusStep(int status);
  void StatusShownStep();
  void HitTest();
  void ImpactStep();
  void EffectsStep();
  void ActionDoneStep();
  void EndTurn(bool cameThroughPhase5);
  Kindrel& Actor() const;
  Kindrel& Target() const;
  // How the messages name a creature: "The Bluberd" for the opponent, the bare name for
  // the player's own.
  std::string NameOf(const Kindrel& creature) const;

  // Catching and the end.
  void MaybeOfferCatch(bool weak);
  void AttemptCatch();
  void CatchShownStep();
  void HandleFaint();
  void OpponentRetreats();
  void NextOpponent();
  void CreateOpponent();
  void ResetOffsets();

  // Spell animations and sounds.
  void PlaySpellSound(const char (*table)[64]);
  void SetUpProjectiles();
  void FlightTick();
  void ThreadTick(int x, int y);
  void ImpactEffect();
  void ShakeTick();
  void SparkleTick();
  void SlideOutTick();

  // Drawing.
  void Draw();
  void DrawPanels();
  void DrawCreature(const Kindrel* creature, float x, float y);
};
