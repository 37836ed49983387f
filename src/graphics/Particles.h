#pragma once
// Single-pixel particles for sparks, trails and spell effects: a fixed pool whose slots
// are reused in turn, and emitters that pick each property from a range at random.
#include <cstdint>
#include <memory>

struct Particle;
using ParticleUpdate = void (*)(Particle* particle);

struct Particle {
  std::uint8_t red = 0, green = 0, blue = 0;
  float x = 0.0f, y = 0.0f;
  float heading = 0.0f;  // radians; 0 points up the screen, pi/2 to the right
  float speed = 0.0f;    // pixels per frame
  std::int32_t life = 0;
  ParticleUpdate update = nullptr;  // null marks a free slot
};

class ParticlePool {
 public:
  explicit ParticlePool(int count);
  virtual ~ParticlePool();
  ParticlePool(const ParticlePool&) = delete;
  ParticlePool& operator=(const ParticlePool&) = delete;

  // Fills the slot at the cursor unless a live particle holds it; the cursor moves on
  // either way.
  void AddParticle(int r, int g, int b, float x, float y, float heading, float speed, int life, ParticleUpdate update);
  // Moves, updates, ages and plots every live particle: writing its colour, or adding it
  // to the pixel underneath. The draw target stays locked until EndAdditive.
  void UpdateAndDraw();
  void UpdateAndDrawAdditive();

  std::int32_t count;
  std::unique_ptr<Particle[]> particles;
  std::int32_t cursor = 0;

 private:
  void Run(bool additive);
};

struct ParticleEmitter {
  std::uint8_t colourMax[3];  // exclusive
  std::uint8_t colourMin[3];  // inclusive
  std::int32_t xMin, yMin;    // inclusive
  std::int32_t xMax, yMax;    // exclusive
  float headingMax, speedMax;
  float headingMin, speedMin;
  std::int32_t lifeMax;  // exclusive
  std::int32_t lifeMin;  // inclusive
  ParticleUpdate update;
  ParticlePool* pool;  // null disables the emitter

  // Adds one particle with random properties to the pool.
  void Emit();
};
