// Aligned blocks from the C library. The alignment is a cache line, so that work memory shares no
// line with its neighbours.

#include "rvncore.h"

#include <stdlib.h>

void* rvnMalloc(int32_t bytes)
{
    constexpr size_t alignment = 64;
    if (bytes < 0)
        return nullptr;
    void* block = nullptr;
    const size_t size = bytes > 0 ? static_cast<size_t>(bytes) : alignment;
    return posix_memalign(&block, alignment, size) == 0 ? block : nullptr;
}

void rvnFree(void* block)
{
    free(block);
}
