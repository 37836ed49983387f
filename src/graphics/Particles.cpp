#include "graphics/Particles.h"

#include <cmath>

#include "graphics/Blit.h"
#include "graphics/Display.h"
#include "shell/Random.h"

ParticlePool::ParticlePool(int slots) : count(slots > 0 ? slots : 0), particles(new Particle[count > 0 ? count : 1]) {}

ParticlePool::~ParticlePool() = default;

void ParticlePool::AddParticle(int r, int g, int b, float x, float y, float heading, float speed, int life,
                               ParticleUpdate update) {
  if (count == 0) return;
  Particle& slot = particles[cursor];
  if (!slot.update) {
    slot.red = static_cast<std::uint8_t>(r);
    slot.green = static_cast<std::uint8_t>(g);
    slot.blue = static_cast<std::uint8_t>(b);
    slot.x = x;
    slot.y = y;
    slot.heading = heading;
    slot.speed = speed;
    slot.life = life;
    slot.update = update;
  }
  cursor = cursor == count - 1 ? 0 : cursor + 1;
}

void ParticlePool::UpdateAndDraw() { Run(false); }

void ParticlePool::UpdateAndDrawAdditive() { Run(true); }

void ParticlePool::Run(bool additive) {
  if (!theDisplay || theDisplay->RestoreFront() != 0) return;
  if (!LockDrawTarget()) return;
  const Display& d = *theDisplay;
  const Rect clip = d.ClipRect;
  for (int i = 0; i < count; ++i) {
    Particle& p = particles[i];
    if (!p.update) continue;
    p.x += std::sin(p.heading) * p.speed;
    p.y -= std::cos(p.heading) * p.speed;
    p.update(&p);
    p.life -= 1;
    if (p.life < 1) {
      p.update = nullptr;
      continue;
    }
    // A particle outside the clip rectangle keeps moving and ageing, unseen.
    if (!(clip.left <= p.x && p.x < clip.right && clip.top <= p.y && p.y < clip.bottom)) continue;
    std::uint16_t* pixel = LockedPixel(static_cast<int>(p.x), static_cast<int>(p.y));
    if (!pixel) continue;
    const auto colour = static_cast<std::uint16_t>(((p.red >> (8 - d.redWidth)) << d.redShift) |
                                                   ((p.green >> (8 - d.greenWidth)) << d.greenShift) |
                                                   ((p.blue >> (8 - d.blueWidth)) << d.blueShift));
    *pixel = additive ? AddPixels(*pixel, colour) : colour;
  }
}

namespace {

int PickInt(int min, int max) { return max == min ? min : min + Rand() % (max - min); }

// Steps of 0.01 between the bounds.
float PickFloat(float min, float max) {
  const int steps = static_cast<int>((max - min) * 100.0f);
  if (max - min == 0.0f || steps == 0) return min;
  return min + static_cast<float>(Rand() % steps) * 0.01f;
}

}  // namespace

void ParticleEmitter::Emit() {
  const int r = PickInt(colourMin[0], colourMax[0]);
  const int g = PickInt(colourMin[1], colourMax[1]);
  const int b = PickInt(colourMin[2], colourMax[2]);
  const int x = PickInt(xMin, xMax);
  const int y = PickInt(yMin, yMax);
  const float heading = PickFloat(headingMin, headingMax);
  const float speed = PickFloat(speedMin, speedMax);
  const int life = PickInt(lifeMin, lifeMax);
  if (pool) pool->AddParticle(r, g, b, static_cast<float>(x), static_cast<float>(y), heading, speed, life, update);
}
