// A singly linked list of the objects of a plan, in the plan's arena.
//
// A list is a pointer to its head, a node like the others. The first item costs no memory: it goes
// into the head. Lists are built while planning and only read afterwards. A `children` list owns
// its items; other lists hold second references to them.
#pragma once

#include "dct4/arena.h"

#include <cstddef>

extern "C" {

// What a list knows of its items: how to end one, and the bytes that it was given.
struct EnvObject {
    void (*delFn)(void* self);
    std::int32_t objectSize;
};

struct EnvList {
    EnvObject* item; // null only in the head of a list that holds nothing
    EnvList* next;
    Arena* arena; // of the node and of those behind it
};

static_assert(sizeof(EnvList) == 24 && offsetof(EnvList, next) == 8 &&
              offsetof(EnvList, arena) == 16);

EnvList* EnvList___init__(EnvList* node, Arena* arena);

// Appends the item and returns it.
void* EnvList_add(EnvList* list, void* item);

// The item at an index from 0 up; null for a negative index and beyond the end. The index right
// behind the last node must not be asked for.
void* EnvList_get(const EnvList* list, std::int32_t index);

// Ends every item and gives its bytes back. A null list is left alone.
void EnvList_freeChildren(EnvList* list);

// Gives back the nodes behind the head.
void EnvList___del__(EnvList* list);

// The bytes that so many nodes take in an arena.
std::uint64_t EnvList_add_mem(std::int32_t count);
}
