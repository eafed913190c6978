// The memory of a plan: one block, of which bytes are taken by moving a cursor.
//
// The block's first word is the cursor, the address of the next free byte; an Arena pointer is the
// block's own address. Nothing else is recorded: the block's size was settled by the size query,
// and releases only move the cursor back, in any order. All sizes are rounded up to 32 bytes, so
// what is taken is aligned to 32.
#pragma once

#include <cstdint>

extern "C" {

// Packed, since a caller's block may have any alignment.
struct __attribute__((packed)) Arena {
    std::uintptr_t cursor;
};

// The count rounded up to a multiple of 32.
std::uint64_t rvngAlignSize32Bytes(std::uint64_t bytes);

void* rvngArenaMalloc(Arena* arena, std::uint64_t bytes);

// Only the byte count matters; the address is not looked at.
void rvngArenaFree(Arena* arena, void* address, std::uint64_t bytes);
}
