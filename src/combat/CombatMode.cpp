#include "combat/CombatMode.h"

#include <cstdio>
#include <cstdlib>

#include "audio/SoundEffect.h"
#include "creatures/PlayerRecord.h"
#include "platform/Window.h"
#include "screens/CreatureInfoScreen.h"
#include "screens/ClickSound.h"
#include "screens/PartyBoxes.h"
#include "shell/Globals.h"
#include "shell/TextFormat.h"

int textDelay = 42;
int combatResult = 1;

namespace {

const char* const kHeadFiles[15] = {
    "dat\\flr-lrg-white.bmp", "dat\\flr-lrg-yellow.bmp", "dat\\flr-lrg-red.bmp", "dat\\flr-lrg-green.bmp",
    "dat\\flr-lrg-blue.bmp",  "dat\\flr-med-white.bmp",  "dat\\flr-med-yellow.bmp", "dat\\flr-med-red.bmp",
    "dat\\flr-med-green.bmp", "dat\\flr-med-blue.bmp",   "dat\\flr-sml-white.bmp", "dat\\flr-sml-yellow.bmp",
    "dat\\flr-sml-red.bmp",   "dat\\flr-sml-green.bmp",  "dat\\flr-sml-blue.bmp",
};

}  // namespace

CombatMode::CombatMode(std::uint32_t id, const char* name, OpponentList opponents, int count,
                       const char* backgroundFile, int catchIsAllowed, int px, int py, int ox, int oy)
    : GameMode(id, name),
      opponentList(opponents),
      opponentCount(count),
      catchAllowed(catchIsAllowed),
      widgets(PackColour(180, 180, 230), PackColour(100, 255, 100)) {
  textDelay = (15 - thePlayer.textSpeed) * 3;
  combatResult = 1;
  AddPartyBoxes(widgets, kFirstPartyBox);
  widgets.Add(new Button(kChangeButton, "Change", 64, 540, 320, 640, 345, 2));
  widgets.Add(new Button(kRetreatButton, "Retreat", 64, 540, 345, 640, 370, 2));
  frame.LoadPicture("dat\\outline2.bmp");
  background.LoadPicture(backgroundFile);
  phase = kPhaseOpening;
  SetCountdown(2 * textDelay);
  fanfare = LoadSound(0, "dat\\fanfare4.wav");
  PlaySound(0, fanfare);
  levelUpSound = LoadSound(0, "dat\\common2.wav");
  refusalSound = LoadSound(0, "dat\\button2.wav");
  opponentIndex = 0;
  CreateOpponent();
  const int fit = thePlayer.FirstFitSlot();
  activeSlot = fit >= 0 ? fit : 0;
  BuildSpellButtons();
  message = Format("%s is battling a %s!", Active() ? Active()->name : "", opponent ? opponent->name : "");
  particles = std::make_unique<ParticlePool>(1000);
  if (px != 0) {
    playerX = static_cast<float>(px);
    playerY = static_cast<float>(py);
    opponentX = static_cast<float>(ox);
    opponentY = static_cast<float>(oy);
  }
}

CombatMode::~CombatMode() {
  thePlayer.ClearPartyStatus();
  std::free(opponentList);
  opponentList = nullptr;
  spellSounds.Clear();
  FreeSound(fanfare);
  FreeSound(levelUpSound);
  FreeSound(refusalSound);
  if (opponent) opponent->Release();
  opponent.reset();
}

Kindrel* CombatMode::Active() const { return thePlayer.party[activeSlot].get(); }

int CombatMode::Activate() {
  for (int i = 0; i < 15; ++i) heads[i].LoadPicture(kHeadFiles[i]);
  Draw();
  return 1;
}

int CombatMode::Deactivate() {
  for (Picture& head : heads) head.surface.reset();
  return 0;
}

int CombatMode::Tick(std::uint32_t) {
  countdown -= 1;
  if (countdown <= 0) RunPhaseStep();
  AnimatePhase();
  Draw();
  return 1;
}

LResult CombatMode::HandleMessage(WindowHandle window, std::uint32_t msg, WParam wParam, LParam lParam) {
  const int x = platform::PointX(lParam), y = platform::PointY(lParam);
  switch (msg) {
    case platform::WM_LBUTTONDOWN:
    case platform::WM_RBUTTONDOWN:
      if (phase != kPhaseWaiting) {
        PlaySound(0, refusalSound);
        countdown = 0;  // the message ends at the next tick
      } else if (widgets.HitTest(x, y) != kHitNothing && widgets.current) {
        Act(static_cast<int>(widgets.current->GetId()));
      }
      return 0;
    case platform::WM_MOUSEMOVE:
      widgets.HitTest(x, y);
      return 0;
    case platform::WM_KEYDOWN:
      if (wParam == platform::VK_RETURN || wParam == platform::VK_SPACE) {
        if (phase != kPhaseWaiting) PlaySound(0, refusalSound);
        else if (widgets.current) Act(static_cast<int>(widgets.current->GetId()));
      } else if (wParam == platform::VK_UP || wParam == platform::VK_DOWN) {
        widgets.Cycle(wParam == platform::VK_UP ? kCyclePrevious : kCycleNext);
        platform::InvalidateRect(window);
      }
      return 0;
  }
  return GameMode::HandleMessage(window, msg, wParam, lParam);
}

void CombatMode::Act(int id) {
  PlayClick();
  if (id == kRetreatButton) {
    combatResult = 2;
    Leave();
  } else if (id == kCatchButton) {
    AttemptCatch();
  } else if (id == kChangeButton) {
    choosingReplacement = 1;
    message = "Choose another Kindrel!";
  } else if (id >= kFirstPartyBox && id < kFirstPartyBox + kPartySize) {
    ChoosePartyBox(id - kFirstPartyBox);
  } else if (id >= kFirstSpellButton && id < kFirstSpellButton + 5) {
    actionCounter += 1;
    playerSpellSlot = id - kFirstSpellButton;
    playerActed = opponentActed = 0;
    StartExchange(false);
  }
}

void CombatMode::ChoosePartyBox(int slot) {
  Kindrel* creature = thePlayer.party[slot].get();
  if (choosingReplacement && creature) {
    activeSlot = slot;
    message = Format("%s enters the battle!", creature->name);
    BuildSpellButtons();
  } else if (!choosingReplacement) {
    // A look at the creature, without SWAP: the party's order stays during a battle.
    InspectSlot(*this, slot, 0);
  }
  choosingReplacement = 0;
}

void CombatMode::BuildSpellButtons() {
  for (int id = kFirstSpellButton; id <= kFirstSpellButton + 4; ++id) RemoveWidget(id);
  const Kindrel* creature = Active();
  if (!creature) return;
  for (int i = 0; i < creature->spellsKnown && i < 5; ++i) {
    widgets.Add(new Button(kFirstSpellButton + i, creature->SpellInSlot(i).name, 64, 20, 200 + 26 * i, 200,
                           225 + 26 * i, 2));
  }
}

void CombatMode::RemoveWidget(int id) {
  while (Box* widget = widgets.FindById(static_cast<std::uint32_t>(id))) {
    widgets.items.Remove(widget);
    if (widgets.current == widget) widgets.current = static_cast<Box*>(widgets.items.Last());
    delete widget;
  }
}

void CombatMode::Leave() {
  pendingScreen = nullptr;
  state = kStateLeave;
}

void CombatMode::SetCountdown(int ticks) { countdown = countdownLength = ticks; }

void CombatMode::Show(const std::string& text, int ticks) {
  message = text;
  SetCountdown(ticks);
}

void CombatMode::RunPhaseStep() {
  switch (phase) {
    case kPhaseOpening:
      message = "Choose a spell.";
      phase = kPhaseWaiting;
      break;
    case kPhaseWaiting:
      break;
    case kPhaseAnnounce:
      HitTest();
      break;
    case kPhaseFlight:
      ImpactStep();
      break;
    case kPhaseImpact:
      EffectsStep();
      break;
    case kPhaseActionDone:
      ActionDoneStep();
      break;
    case kPhaseEnding:
      Leave();
      break;
    case kPhaseStatusShown:
      StatusShownStep();
      break;
    case kPhaseLevelUpShown:
      OpponentRetreats();
      break;
    case kPhaseCatchShown:
      CatchShownStep();
      break;
    case kPhaseOpponentLeaving:
      NextOpponent();
      break;
  }
}

void CombatMode::AnimatePhase() {
  switch (phase) {
    case kPhaseAnnounce: SparkleTick(); break;
    case kPhaseFlight: FlightTick(); break;
    case kPhaseImpact: ShakeTick(); break;
    case kPhaseOpponentLeaving: SlideOutTick(); break;
    default: break;
  }
}
