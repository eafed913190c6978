// The exported size query and initialiser: a plan in the caller's block.
//
// The block begins with the arena's word. The arena starts at the first multiple of 32 that lies at
// least 33 bytes behind the block's address, so the word and the gap behind it are never more than
// 64 bytes, whatever the block's alignment; env1 is its first allocation.

#include "dct4/engine.h"

#include <new>

using namespace rvn::dct4;

namespace
{

std::int64_t alignment()
{
    return static_cast<std::int64_t>(rvngAlignSize32Bytes(1));
}

} // namespace

RvnStatus RVNG_DCT4(rvngDCT4GetSize)(std::int32_t size, std::int32_t* bytes)
{
    const std::int32_t plan = OWNG_DCT4(env1, mem)(size);
    if (plan < 0)
        return RvnStatusSizeError;
    *bytes = narrowed(plan + 2 * alignment());
    return RvnStatusNoError;
}

RvnStatus RVNG_DCT4(rvngDCT4Init)(RVNG_DCT4(RvnDCT4Spec) * *spec, std::int32_t size, void* block)
{
    if (spec == nullptr || block == nullptr)
        return RvnStatusNullPointer;
    const auto address = reinterpret_cast<std::int64_t>(block);
    Arena* const arena = new (block)
        Arena{static_cast<std::uintptr_t>(address + 2 * alignment() - address % alignment())};

    Env1* const env1 = OWNG_DCT4(env1, __init__)(allocate<Env1>(arena), arena, size);
    const RvnStatus status = OWNG_DCT4(env1, plan)(env1);
    if (status != RvnStatusNoError) {
        OWNG_DCT4(env1, __del__)(env1);
        rvngArenaFree(arena, env1, sizeof(Env1));
        return status;
    }
    *spec = reinterpret_cast<RVNG_DCT4(RvnDCT4Spec)*>(env1);
    return RvnStatusNoError;
}
