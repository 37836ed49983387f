#pragma once
// The cross-fade from the picture on the screen to a new frame in eight quick steps. Each
// step blends through a table of scaled colours: one lookup per pixel and picture instead
// of three multiplications.
#include <cstdint>

#include "graphics/Display.h"

inline constexpr int kFadeLevelCount = 32;
extern const float FadeLevels[kFadeLevelCount];
// FadeTable[level][colour]: the colour with each channel scaled by FadeLevels[level].
extern std::uint16_t FadeTable[kFadeLevelCount][65536];

// Reads the pixel layout of the front surface.
void PrepareFade();
void BuildFadeTable();
// Shows the eight blend steps from `from` to `to` on the front surface. The last step is
// still a mix; the new frame itself comes with the next Present.
void CrossFade(Surface* from, Surface* to);
