#pragma once
// The root of everything the game keeps in its lists: screens, widgets and small named
// records. It carries a number and a name and compares by both.
#include <cstdint>

class ScreenObject {
 public:
  ScreenObject(std::uint32_t id, const char* name);
  virtual ~ScreenObject();
  ScreenObject(const ScreenObject&) = delete;
  ScreenObject& operator=(const ScreenObject&) = delete;

  // 1 when the ids are equal and both names are non-empty and equal byte for byte.
  virtual int IsEqual(const ScreenObject& other) const;
  virtual int IsDifferent(const ScreenObject& other) const;
  // Extension points that the game's classes leave as they are.
  virtual int HookA(int value);
  virtual int HookB(int value);

  std::uint32_t GetId() const { return id; }
  const char* GetName() const { return name; }

  std::uint32_t id;
  char name[256];
};
