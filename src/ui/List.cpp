#include "ui/List.h"

#include <cstring>
#include <new>

List::List() {
  sentinel = new (std::nothrow) Node{nullptr, nullptr, nullptr};
  if (!sentinel) return;
  sentinel->prev = sentinel->next = sentinel;
  cursor = sentinel;
  valid = 1;
}

List::~List() {
  if (!valid) return;
  Node* node = sentinel->next;
  while (node != sentinel) {
    Node* next = node->next;
    delete node->item;
    delete node;
    node = next;
  }
  delete sentinel;
}

ScreenObject* List::MoveTo(Node* node) {
  cursor = node;
  return node->item;
}

ScreenObject* List::First() { return valid ? MoveTo(sentinel->next) : nullptr; }

ScreenObject* List::Last() { return valid ? MoveTo(sentinel->prev) : nullptr; }

ScreenObject* List::Next() { return valid ? MoveTo(cursor->next) : nullptr; }

ScreenObject* List::Prev() { return valid ? MoveTo(cursor->prev) : nullptr; }

ScreenObject* List::NextWrap() {
  if (!valid) return nullptr;
  return cursor->next == sentinel ? First() : Next();
}

ScreenObject* List::PrevWrap() {
  if (!valid) return nullptr;
  return cursor->prev == sentinel ? Last() : Prev();
}

ScreenObject* List::Append(ScreenObject* item) {
  if (!valid || !item) return nullptr;
  Node* node = new (std::nothrow) Node{sentinel->prev, sentinel, item};
  if (!node) return nullptr;
  sentinel->prev->next = node;
  sentinel->prev = node;
  return item;
}

template <typename Match>
ScreenObject* List::Find(Match match) {
  if (!valid) return nullptr;
  for (Node* node = sentinel->next; node != sentinel; node = node->next) {
    if (match(node->item)) return MoveTo(node);
  }
  cursor = sentinel;
  return nullptr;
}

ScreenObject* List::FindItem(const ScreenObject* item) {
  return Find([item](ScreenObject* candidate) { return candidate == item; });
}

ScreenObject* List::FindById(std::uint32_t id) {
  return Find([id](ScreenObject* candidate) { return candidate->GetId() == id; });
}

ScreenObject* List::FindByName(const char* name) {
  if (!name) return nullptr;
  return Find([name](ScreenObject* candidate) { return std::strcmp(candidate->GetName(), name) == 0; });
}

ScreenObject* List::Remove(ScreenObject* item) {
  if (!valid) return nullptr;
  if (item && !FindItem(item)) return nullptr;
  if (cursor == sentinel) return nullptr;
  Node* node = cursor;
  node->prev->next = node->next;
  node->next->prev = node->prev;
  cursor = node->prev;
  delete node;
  return cursor->item;
}

bool List::IsEmpty() const { return !valid || sentinel->next == sentinel; }
