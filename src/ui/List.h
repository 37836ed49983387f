#pragma once
// The owning, circular, doubly linked list of the game, with a built-in cursor: the node
// of the last item any operation returned. It deletes its items when it is destroyed.
#include <cstdint>

#include "shell/ScreenObject.h"

class List {
 public:
  List();
  virtual ~List();
  List(const List&) = delete;
  List& operator=(const List&) = delete;

  ScreenObject* First();
  ScreenObject* Last();
  ScreenObject* Next();  // null at the end
  ScreenObject* Prev();  // null at the start
  ScreenObject* NextWrap();
  ScreenObject* PrevWrap();
  // Adds at the end; the cursor stays. Null for a null item.
  ScreenObject* Append(ScreenObject* item);
  ScreenObject* FindItem(const ScreenObject* item);
  ScreenObject* FindById(std::uint32_t id);
  ScreenObject* FindByName(const char* name);
  // Takes the item (or, with null, the cursor's item) out of the list without deleting
  // it; the cursor moves to the previous node, whose item is returned.
  ScreenObject* Remove(ScreenObject* item);
  bool IsEmpty() const;

  int valid = 0;

 private:
  struct Node {
    Node* prev;
    Node* next;
    ScreenObject* item;
  };
  ScreenObject* MoveTo(Node* node);
  template <typename Match>
  ScreenObject* Find(Match match);

  Node* sentinel = nullptr;
  Node* cursor = nullptr;
};
