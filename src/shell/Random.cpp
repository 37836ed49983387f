#include "shell/Random.h"

namespace {
std::uint32_t state = 1;
}

void SeedRandom(std::uint32_t seed) { state = seed; }

std::uint32_t RandomState() { return state; }

int Rand() {
  state = state * 214013u + 2531011u;
  return static_cast<int>((state >> 16) & 0x7FFF);
}

int Roll(int n) { return Rand() % n; }
