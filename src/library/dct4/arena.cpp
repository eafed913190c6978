#include "dct4/arena.h"

std::uint64_t rvngAlignSize32Bytes(std::uint64_t bytes)
{
    constexpr std::uint64_t lowBits = 31;
    return (bytes + lowBits) & ~lowBits;
}

void* rvngArenaMalloc(Arena* arena, std::uint64_t bytes)
{
    const std::uintptr_t address = arena->cursor;
    arena->cursor += rvngAlignSize32Bytes(bytes);
    return reinterpret_cast<void*>(address);
}

void rvngArenaFree(Arena* arena, void* /*address*/, std::uint64_t bytes)
{
    arena->cursor -= rvngAlignSize32Bytes(bytes);
}
