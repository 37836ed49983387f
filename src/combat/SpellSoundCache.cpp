#include "combat/SpellSoundCache.h"

#include "audio/SoundEffect.h"
#include "shell/ScreenObject.h"

namespace {

// One loaded sound, named by its file. A file that could not be loaded is kept as a null
// sound, so that it is not tried (and reported) again.
class CachedSound : public ScreenObject {
 public:
  CachedSound(const char* fileName, SoundEffect* loaded) : ScreenObject(0, fileName), sound(loaded) {}
  ~CachedSound() override { FreeSound(sound); }
  SoundEffect* sound;
};

}  // namespace

SpellSoundCache::SpellSoundCache() = default;

SpellSoundCache::~SpellSoundCache() = default;

void SpellSoundCache::Play(const char* fileName) {
  if (!fileName || fileName[0] == 'X' || fileName[0] == '\0') return;
  auto* cached = static_cast<CachedSound*>(sounds.FindByName(fileName));
  if (!cached) {
    cached = new CachedSound(fileName, LoadSound(0, fileName));
    sounds.Append(cached);
  }
  PlaySound(0, cached->sound);
}

void SpellSoundCache::Clear() {
  while (ScreenObject* item = sounds.First()) {
    sounds.Remove(item);
    delete item;
  }
}

int SpellSoundCache::Count() {
  int count = 0;
  for (ScreenObject* item = sounds.First(); item; item = sounds.Next()) ++count;
  return count;
}
