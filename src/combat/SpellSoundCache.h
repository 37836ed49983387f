#pragma once
// The spell sounds of one combat: each file is loaded the first time the combat plays it
// and kept, by its file name, until the combat ends.
#include "ui/List.h"

struct SoundEffect;

class SpellSoundCache {
 public:
  SpellSoundCache();
  ~SpellSoundCache();
  SpellSoundCache(const SpellSoundCache&) = delete;
  SpellSoundCache& operator=(const SpellSoundCache&) = delete;

  // Plays the file, loading it on its first use. A name beginning with "X" is silence.
  void Play(const char* fileName);
  // Frees every sound.
  void Clear();
  int Count();

 private:
  List sounds;
};
