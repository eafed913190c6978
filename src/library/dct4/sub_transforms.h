// What env3 and env7 share: odd-frequency transforms of one length, side by side. Lengths 2 to 64
// have fixed bodies, longer ones are split again through one env4, which all of them use in turn.
#pragma once

#include "dct4/bodies.h"
#include "dct4/engine.h"

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

inline constexpr std::int32_t innerSplitMode = 7;

inline std::int32_t modeOfSubSize(std::int32_t subSize)
{
    return modeOf(subSize, 1, 6, innerSplitMode);
}

// The plan of an env3 or env7. Its stride goes to the env4, and its two copies of the top size.
template <typename Object> RvnStatus planSubTransforms(Object* self, std::int32_t topSizeAgain)
{
    self->mode = modeOfSubSize(self->subSize);
    if (self->mode == innerSplitMode) {
        Arena* const arena = self->header.arena;
        Env4* const env4 = OWNG_DCT4(env4, __init__)(allocate<Env4>(arena), arena, self->subSize,
                                                     self->topSize, topSizeAgain, self->stride,
                                                     self->parentSize, self->parentRadix);
        EnvList_add(self->env4List, EnvList_add(self->children, env4));
        if (OWNG_DCT4(env4, plan)(itemOf<Env4>(self->env4List)) != RvnStatusNoError)
            return RvnStatusSizeError;
    }
    self->table = nullptr;
    return RvnStatusNoError;
}

template <typename Object> void releaseSubTransforms(Object* self)
{
    if (1 <= self->mode && self->mode <= innerSplitMode)
        rvngArenaFree(self->header.arena, self->table, 0);
    releaseList(self->env4List);
    releaseChildren(self->children);
}

// The bytes of an env3 or env7 without those of its env4.
template <typename Object> std::uint64_t bytesOfHolder()
{
    return rvngAlignSize32Bytes(0) + rvngAlignSize32Bytes(sizeof(Object)) +
           2 * rvngAlignSize32Bytes(sizeof(EnvList));
}

// The same with its env4 of so many bytes, and two list nodes that it may need.
template <typename Object> std::int32_t bytesOfHolder(std::int32_t env4Bytes)
{
    return narrowed(static_cast<std::int64_t>(static_cast<std::uint64_t>(env4Bytes) +
                                              bytesOfHolder<Object>() + EnvList_add_mem(2)));
}

// Runs the fixed body of a mode over sequences side by side.
inline RvnStatus runOddBody(std::int32_t mode, Scalar* dst, const Scalar* src,
                            const Sequences& sequences)
{
    switch (mode) {
    case 1:
        OWNG_DCT4(odd, 2)(dst, src, sequences);
        break;
    case 2:
        OWNG_DCT4(odd, 4)(dst, src, sequences);
        break;
    case 3:
        OWNG_DCT4(odd, 8)(dst, src, sequences);
        break;
    case 4:
        OWNG_DCT4(odd, 16)(dst, src, sequences);
        break;
    case 5:
        OWNG_DCT4(odd, 32)(dst, src, sequences);
        break;
    case 6:
        OWNG_DCT4(odd, 64)(dst, src, sequences);
        break;
    default:
        return RvnStatusBadMode;
    }
    return RvnStatusNoError;
}

// The env4 that long transforms run through, one after the other: its env7 fills its scratch, its
// env6 takes the rows from there. Null in a plan that is damaged.
inline const Env4* innerSplitOf(const EnvList* env4List)
{
    const Env4* const env4 = itemOf<Env4>(env4List);
    return env4->mode == 1 ? env4 : nullptr;
}

// Runs one long transform whose sequence and rows lie elsewhere than in a plan's own order.
inline void runInnerSplit(const EnvList* env4List, Scalar* dst, const Scalar* src,
                          const Sequence& sequence, std::ptrdiff_t rowStep)
{
    const Env4* const env4 = innerSplitOf(env4List);
    if (env4 == nullptr)
        return;
    OWNG_DCT4(env7, sweep)(itemOf<Env7>(env4->env7List), env4->scratch, src, sequence);
    OWNG_DCT4(env6, rows)(itemOf<Env6>(env4->env6List), dst, env4->scratch, rowStep);
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
