// The exported allocating initialiser and its release. In a file of its own: the size query and the
// initialiser are called by their exported names, so that interposed ones are found.

#include "dct4/engine.h"
#include "rvncore.h"

RvnStatus RVNG_DCT4(rvngDCT4InitAlloc)(RVNG_DCT4(RvnDCT4Spec) * *spec, std::int32_t size)
{
    if (spec == nullptr)
        return RvnStatusNullPointer;
    std::int32_t bytes = 0;
    if (const RvnStatus status = RVNG_DCT4(rvngDCT4GetSize)(size, &bytes);
        status != RvnStatusNoError)
        return status;
    // The initialiser reports an allocation that failed, as a null block.
    void* const block = rvnMalloc(bytes);
    const RvnStatus status = RVNG_DCT4(rvngDCT4Init)(spec, size, block);
    if (status != RvnStatusNoError)
        rvnFree(block);
    return status;
}

RvnStatus RVNG_DCT4(rvngDCT4Free)(RVNG_DCT4(RvnDCT4Spec) * spec)
{
    if (spec == nullptr)
        return RvnStatusNullPointer;
    auto* const env1 = reinterpret_cast<Env1*>(spec);
    Arena* const arena = env1->header.arena;
    OWNG_DCT4(env1, __del__)(env1);
    rvngArenaFree(arena, env1, sizeof(Env1));
    rvnFree(arena);
    return RvnStatusNoError;
}
