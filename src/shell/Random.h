#pragma once
// The one random generator of the whole game. Every random decision goes through it, so
// that a run is repeatable from its seed: the order of the calls is part of the rules.
#include <cstdint>

void SeedRandom(std::uint32_t seed);
std::uint32_t RandomState();
// 0..32767: state = state * 214013 + 2531011, bits 16 to 30 of the new state.
int Rand();
// Rand() modulo n.
int Roll(int n);
