#include "shell/ScreenObject.h"

#include <cstring>

ScreenObject::ScreenObject(std::uint32_t objectId, const char* objectName) : id(objectId) {
  std::memset(name, 0, sizeof name);
  if (objectName) std::strncpy(name, objectName, sizeof name - 1);
}

ScreenObject::~ScreenObject() = default;

int ScreenObject::IsEqual(const ScreenObject& other) const {
  return id == other.id && name[0] != '\0' && other.name[0] != '\0' && std::strcmp(name, other.name) == 0;
}

int ScreenObject::IsDifferent(const ScreenObject& other) const { return IsEqual(other) <= 0 ? 1 : 0; }

int ScreenObject::HookA(int) { return 0; }

int ScreenObject::HookB(int) { return 0; }
