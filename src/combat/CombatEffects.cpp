// What a cast looks and sounds like: boost sparkles while a spell is announced, the
// projectiles with their heads and trails, the burst and the shake of a hit, the beaten
// opponent sliding away, and the three sounds of every spell.
#include <cmath>
#include <numbers>

#include "combat/CombatMode.h"
#include "creatures/PlayerRecord.h"
#include "shell/Random.h"

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

void Still(Particle*) {}

// Web, acid and glue threads curl back toward the middle as they fly.
void Curl(Particle* p) { p->heading += p->heading <= kPi ? kPi / 37 : -kPi / 37; }

// The two emitters that every combat shares; both point at the current combat's pool.
ParticleEmitter burst{.colourMax = {255, 255, 255}, .colourMin = {0, 0, 0}, .xMin = 0, .yMin = 0, .xMax = 0, .yMax = 0,
                      .headingMax = 2 * kPi, .speedMax = 4, .headingMin = 0, .speedMin = 1, .lifeMax = 20,
                      .lifeMin = 10, .update = Still, .pool = nullptr};
ParticleEmitter thread{.colourMax = {255, 255, 255}, .colourMin = {255, 255, 255}, .xMin = 0, .yMin = 0, .xMax = 0,
                       .yMax = 0, .headingMax = 0, .speedMax = 17, .headingMin = 0, .speedMin = 15, .lifeMax = 20,
                       .lifeMin = 20, .update = Curl, .pool = nullptr};

void Colour(ParticleEmitter& e, int r, int g, int b) {
  e.colourMax[0] = e.colourMin[0] = static_cast<std::uint8_t>(r);
  e.colourMax[1] = e.colourMin[1] = static_cast<std::uint8_t>(g);
  e.colourMax[2] = e.colourMin[2] = static_cast<std::uint8_t>(b);
}
void Colours(ParticleEmitter& e, int r1, int g1, int b1, int r0, int g0, int b0) {
  e.colourMax[0] = static_cast<std::uint8_t>(r1), e.colourMax[1] = static_cast<std::uint8_t>(g1),
  e.colourMax[2] = static_cast<std::uint8_t>(b1);
  e.colourMin[0] = static_cast<std::uint8_t>(r0), e.colourMin[1] = static_cast<std::uint8_t>(g0),
  e.colourMin[2] = static_cast<std::uint8_t>(b0);
}
void At(ParticleEmitter& e, int x, int y) {
  e.xMin = e.xMax = x;
  e.yMin = e.yMax = y;
}
void Speeds(ParticleEmitter& e, float low, float high) {
  e.speedMin = low;
  e.speedMax = high;
}
void Headings(ParticleEmitter& e, float low, float high) {
  e.headingMin = low;
  e.headingMax = high;
}
void Lives(ParticleEmitter& e, int low, int high) {
  e.lifeMin = low;
  e.lifeMax = high;
}
void EmitMany(ParticleEmitter& e, int count) {
  for (int i = 0; i < count; ++i) e.Emit();
}

}  // namespace

void CombatMode::PlaySpellSound(const char (*table)[64]) { spellSounds.Play(table[currentSpell->index]); }

void CombatMode::SetUpProjectiles() {
  burst.pool = thread.pool = particles.get();
  Headings(burst, 0, 2 * kPi);
  const int family = SpellFamilyOf(currentSpell->index);
  if (family == kFamilyDamage) Lives(burst, 3, 7);
  const float fromX = PlayerActing() ? playerX : opponentX;
  const float fromY = PlayerActing() ? playerY : opponentY;
  float toX = PlayerActing() ? opponentX : playerX;
  const float toY = PlayerActing() ? opponentY : playerY;
  const float total = std::fabs(toX - fromX);
  if (!hit) toX += PlayerActing() ? 150.0f : -150.0f;  // a miss flies past
  projectileCount = family == kFamilyParalyze ? 3 : 1;
  for (int k = 0; k < projectileCount; ++k) {
    projectiles[k] = Projectile{fromX, fromY, toX, toY, fromX, fromY, 0.0f, total};
  }
}

void CombatMode::FlightTick() {
  const float progress = countdownLength > 0 ? static_cast<float>(countdownLength - countdown) / countdownLength : 1.0f;
  for (int k = 0; k < projectileCount; ++k) {
    Projectile& p = projectiles[k];
    p.covered = static_cast<float>(static_cast<int>(progress * p.total));
    const float share = p.total > 0 ? p.covered / p.total : 1.0f;
    p.x = static_cast<float>(static_cast<int>(p.startX + (p.targetX - p.startX) * share));
    p.y = static_cast<float>(static_cast<int>(p.startY + (p.targetY - p.startY) * share));
  }
  const Projectile& head = projectiles[0];
  const float along = head.total > 0 ? head.covered / head.total : 1.0f;
  const int tier = SpellTier(currentSpell->index);
  const int hx = static_cast<int>(head.x), hy = static_cast<int>(head.y);
  const int tx = static_cast<int>(PlayerActing() ? opponentX : playerX);
  const int ty = static_cast<int>(PlayerActing() ? opponentY : playerY);
  auto setHead = [&](int picture, int x, int y) {
    headPicture = picture;
    headX = static_cast<float>(x);
    headY = static_cast<float>(y);
  };
  switch (SpellFamilyOf(currentSpell->index)) {
    case kFamilyDamage: {
      static const int kHeads[3] = {11, 6, 1};
      static const int kCounts[3] = {30, 50, 70};
      setHead(kHeads[tier], hx, hy);
      At(burst, hx, hy);
      Colours(burst, 255, 255, 0, 200, 200, 0);
      Headings(burst, 0, 2 * kPi);
      Speeds(burst, 2.0f * tier, 2.0f * tier + 2.0f);
      EmitMany(burst, kCounts[tier]);
      break;
    }
    case kFamilyPoison: {
      static const int kHeads[3] = {13, 8, 3};
      const int y = static_cast<int>(hy - 40 * std::sin(3 * along));
      setHead(kHeads[tier], hx, y);
      At(burst, hx, y);
      Colours(burst, 200, 225, 200, 200, 230, 200);
      Speeds(burst, 0, 1);
      EmitMany(burst, 5);
      break;
    }
    case kFamilyParalyze: {
      static const int kColours[3][3] = {{0, 255, 0}, {255, 0, 0}, {0, 0, 255}};
      for (int k = 0; k < 3; ++k) {
        const Projectile& p = projectiles[k];
        At(burst, static_cast<int>(p.x), static_cast<int>(p.y - 15 * std::sin(18 * along + 2 * k)));
        Colour(burst, kColours[k][0], kColours[k][1], kColours[k][2]);
        Speeds(burst, 0, 1);
        EmitMany(burst, 15);
      }
      break;
    }
    case kFamilyAccuracyDown:
      burst.xMin = tx - 70, burst.xMax = tx + 70, burst.yMin = ty - 70, burst.yMax = ty + 70;
      Colour(burst, 238, 175, 130);
      Headings(burst, 0.3f * kPi, 0.3f * kPi);
      Speeds(burst, 3, 3);
      EmitMany(burst, 50);
      break;
    case kFamilyDamageOffenseDown: {
      static const int kHeads[3] = {12, 7, 2};
      const int y = static_cast<int>(hy - 20 * std::sin(3 * along));
      setHead(kHeads[tier], hx, y);
      At(burst, hx, y);
      Colour(burst, 255, 0, 0);
      Speeds(burst, 0, 3);
      EmitMany(burst, 15);
      break;
    }
    case kFamilySlow:
      burst.xMin = tx - 60, burst.xMax = tx + 60, burst.yMin = ty - 160, burst.yMax = ty;
      Colour(burst, 128, 128, 128);
      Headings(burst, kPi, kPi);
      Speeds(burst, 3, 5);
      EmitMany(burst, 50);
      break;
    case kFamilyDefenseDown:
      if (currentSpell->index == kAcidSpray) {
        ThreadTick(hx, hy);
      } else if (countdown % 4 == 0) {
        // Glare and Trip flash at a new point near the target every fourth tick.
        const int x = tx - 25 + Roll(50);
        const int y = ty - 25 + Roll(50);
        const bool glare = currentSpell->index == kGlare;
        setHead(glare ? 9 : 7, x, y);
        At(burst, x, y);
        if (glare) Colour(burst, 0, 0, 255);
        else Colour(burst, 255, 0, 0);
        Headings(burst, 0, 2 * kPi);
        Speeds(burst, 3, 3);
        EmitMany(burst, 50);
      }
      break;
    case kFamilySpeedDown:
      ThreadTick(hx, hy);
      break;
    default:
      break;  // boosts fly nowhere
  }
}

void CombatMode::ThreadTick(int x, int y) {
  float a = 1.8f, b = 0.5f;
  if (currentSpell->index == kWeb) a = 1.85f, b = 0.4f;
  if (currentSpell->index == kAcidGlue) a = 1.8f, b = 0.6f;
  switch (currentSpell->index) {
    case kWeb: Colour(thread, 255, 255, 255); break;
    case kAcidGlue: Colour(thread, 155, 255, 155); break;
    case kAcidSpray: Colour(thread, 0, 255, 0); break;
    default: Colour(thread, 55, 55, 255); break;  // Glue Coat
  }
  if (PlayerActing()) Headings(thread, (2 - a) * kPi, (2 - b) * kPi);
  else Headings(thread, b * kPi, a * kPi);
  At(thread, x, y);
  Lives(thread, 20, 20);
  Speeds(thread, 15, 17);
  EmitMany(thread, 5);
}

void CombatMode::ImpactEffect() {
  if (!hit) return;
  const int family = SpellFamilyOf(currentSpell->index);
  const int tx = static_cast<int>(PlayerActing() ? opponentX : playerX);
  const int ty = static_cast<int>(PlayerActing() ? opponentY : playerY);
  At(burst, tx, ty);
  if (family == kFamilyDamage || family == kFamilyPoison) {
    Speeds(burst, 1, 4);
    Lives(burst, 5, 20);
    if (family == kFamilyDamage) Colours(burst, 255, 255, 0, 200, 200, 0);
    else Colours(burst, 200, 225, 200, 200, 230, 200);
    EmitMany(burst, 650);
  } else if (family == kFamilyDamageOffenseDown) {
    const int count = PlayerActing() ? 250 : 650;
    Colour(burst, 255, 0, 0);
    Lives(burst, 20, 20);
    Speeds(burst, 5, 5);
    EmitMany(burst, count);
    Speeds(burst, 2, 3);
    EmitMany(burst, count);
  }
}

void CombatMode::ShakeTick() {
  if (!hit || currentSpell->power < 0.0f || countdownLength <= 0) return;
  const float offset = 2.0f * std::sin(60.0f * static_cast<float>(countdownLength - countdown) / countdownLength);
  (PlayerActing() ? opponentOffsetX : playerOffsetX) = offset;
}

void CombatMode::SparkleTick() {
  const int family = SpellFamilyOf(currentSpell->index);
  if (family < kFamilyAccuracyBoost) return;
  const Picture* picture = Actor().picture.get();
  if (!picture || picture->Width() == 0) return;
  burst.pool = particles.get();
  switch (family) {
    case kFamilyAccuracyBoost: Colours(burst, 255, 255, 255, 0, 0, 0); break;
    case kFamilyDefenseBoost: Colour(burst, 0, 255, 0); break;
    case kFamilyOffenseBoost: Colour(burst, 255, 0, 0); break;
    default: Colour(burst, 255, 255, 0); break;
  }
  Headings(burst, 0, 0);
  Speeds(burst, 3, 3);
  const float cx = PlayerActing() ? playerX : opponentX;
  const float cy = PlayerActing() ? playerY : opponentY;
  const int w = picture->Width(), h = picture->Height();
  for (int i = 0; i < 20; ++i) {
    // Random pixels until an opaque one is found; a picture without one gives up after a
    // fair number of tries instead of stalling the game.
    for (int tries = 0; tries < 1000; ++tries) {
      const int x = Roll(w), y = Roll(h);
      if (picture->IsBlackAt(x, y)) continue;
      At(burst, static_cast<int>(cx) - w / 2 + x, static_cast<int>(cy) - h / 2 + y);
      burst.Emit();
      break;
    }
  }
}

void CombatMode::SlideOutTick() { opponentOffsetX = opponentOffsetX * 1.5f + 1.0f; }
