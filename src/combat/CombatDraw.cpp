// The combat screen, drawn every tick in this order: the tiled background, the box
// frames, the party strip, both creatures, the message, both panels, the buttons while the
// player chooses, the projectile's head and the particles.
#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "graphics/Blit.h"
#include "graphics/Text.h"
#include "screens/Frame.h"
#include "screens/PartyBoxes.h"
#include "screens/Tiling.h"
#include "shell/TextFormat.h"

namespace {

struct Panel {
  Rect bar;
  bool isPlayer;
};

}  // namespace

void CombatMode::Draw() {
  BeginFrame();
  theDisplay->ResetClip();
  TilePicture(background);
  DrawPartyBoxes(frame);
  DrawCreature(Active(), playerX + playerOffsetX, playerY + playerOffsetY);
  DrawCreature(opponent.get(), opponentX + opponentOffsetX, opponentY + opponentOffsetY);
  SetTextTransparent(1);
  SetTextColour(255, 255, 255);
  DrawTextBox(2, message.c_str(), {0, 340, 640, 370}, nullptr, DT_CENTER);
  DrawPanels();
  if (phase == kPhaseWaiting) widgets.DrawAll();
  if (headPicture >= 0 && headPicture < 15) heads[headPicture].DrawAdditive(static_cast<int>(headX), static_cast<int>(headY), 0);
  headPicture = -1;
  if (particles) particles->UpdateAndDrawAdditive();
  EndAdditive();
  EndFrame();
}

void CombatMode::DrawCreature(const Kindrel* creature, float x, float y) {
  if (creature && creature->picture) creature->picture->DrawKeyed(static_cast<int>(x), static_cast<int>(y), 0);
}

void CombatMode::DrawPanels() {
  Surface* target = theDisplay->DrawTarget();
  const Panel panels[2] = {{{20, 80, 220, 95}, true}, {{420, 80, 620, 95}, false}};
  for (const Panel& panel : panels) {
    const Kindrel* creature = panel.isPlayer ? Active() : opponent.get();
    if (!creature || !target) continue;
    const Rect& r = panel.bar;
    target->Fill(r, theDisplay->MatchColour(target, PackColour(128, 128, 128)));
    const int most = creature->MaxHitPoints();
    const int width = most > 0 ? (220 - 20) * (creature->hitPoints > 0 ? creature->hitPoints : 0) / most : 0;
    // The player's bar shrinks toward the right end of its panel, the opponent's toward the left.
    const Rect bar = panel.isPlayer ? Rect{r.right - width, r.top, r.right, r.bottom}
                                    : Rect{r.left, r.top, r.left + width, r.bottom};
    if (!bar.Empty()) target->Fill(bar, theDisplay->MatchColour(target, creature->HitPointColour()));
    const unsigned align = panel.isPlayer ? DT_LEFT : DT_RIGHT;
    if (panel.isPlayer) {
      SetTextColour(0, 0, 155);
      DrawTextBox(1, Format("%d", creature->hitPoints).c_str(), r, nullptr, DT_RIGHT);
    }
    SetTextColour(255, 255, 255);
    DrawTextBox(2, Format("Level: %d", creature->level).c_str(), {r.left, r.top - 26, r.right, r.top - 1}, nullptr,
                align);
    SetTextColour(155, 155, 255);
    DrawTextBox(2, creature->name, {r.left, r.top - 52, r.right, r.top - 27}, nullptr, align);
  }
}
