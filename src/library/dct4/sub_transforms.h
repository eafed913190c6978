// What env3 and env7 share: odd-frequency transforms of one length, side by side. Lengths 2 to 64
// have fixed bodies, longer ones are split again through one env4, which all of them use in turn.
#pragma once

#include "dct4/engine.h"
#include "dct4/modes.h"

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

inline constexpr std::int32_t innerSplitMode = 7;

inline std::int32_t modeOfSubSize(std::int32_t subSize)
{
    return modeOf(subSize, 1, 6, innerSplitMode);
}

template <typename Object>
Object* initSubTransforms(Object* self, Arena* arena, const Object& numbers,
                          const record::EnvHeader<Element>& header)
{
    *self = numbers;
    self->header = header;
    self->env4List = newList(arena);
    self->children = newList(arena);
    return self;
}

// The numbers of the env4 below: the holder's own. An env3 hands on the top size twice.
inline std::int32_t topSizeAgainOf(const Env3& env3)
{
    return env3.topSize;
}

inline std::int32_t topSizeAgainOf(const Env7& env7)
{
    return env7.topSizeAgain;
}

template <typename Object> Env4 innerSplitOf(const Object& self)
{
    return {.size = self.subSize,
            .topSize = self.topSize,
            .topSizeAgain = topSizeAgainOf(self),
            .stride = self.stride,
            .parentSize = self.parentSize,
            .parentRadix = self.parentRadix};
}

template <typename Object> RvnStatus planSubTransforms(Object* self)
{
    self->mode = modeOfSubSize(self->subSize);
    if (self->mode == innerSplitMode) {
        Arena* const arena = self->header.arena;
        Env4* const env4 =
            OWNG_DCT4(env4, __init__)(allocate<Env4>(arena), arena, innerSplitOf(*self));
        if (addPlanned(env4, self->children, self->env4List, OWNG_DCT4(env4, plan)) !=
            RvnStatusNoError)
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

// With an env4, two list nodes are counted that are never taken.
template <typename Object> std::int32_t bytesOfSubTransforms(const Object& self)
{
    const auto A = rvngAlignSize32Bytes;
    const std::uint64_t bytes = A(0) + A(sizeof(Object)) + 2 * A(sizeof(EnvList));
    if (modeOfSubSize(self.subSize) != innerSplitMode)
        return static_cast<std::int32_t>(bytes);
    const std::int32_t env4 = OWNG_DCT4(env4, mem)(innerSplitOf(self));
    return env4 < 0 ? env4
                    : narrowed(static_cast<std::int64_t>(static_cast<std::uint64_t>(env4) + bytes +
                                                         EnvList_add_mem(2)));
}

// Where sequences side by side lie: u[t] of the first at `first` + stride t for t >= 0, and for t <
// 0 at `first` + `mirror` - stride (t + L), which counts from the far end. From one to the next,
// `first` rises by `step` and `mirror` falls by twice that.
struct Offsets {
    std::int32_t first;
    std::int32_t mirror;
    std::int32_t step;
};

// Long transforms, one after the other, through the env4: its env7 fills its scratch, its env6
// takes the rows from there. A function of its own: the call of a fixed body is so short that the
// registers that this loop saves would tell.
template <typename Object>
[[gnu::noinline]] void runInnerSplits(const Object& self, const Offsets& offsets, Scalar* dst,
                                      const Scalar* src)
{
    const Env4* const env4 = itemOf<Env4>(self.env4List);
    if (env4->mode != 1)
        return;
    const auto [first, mirror, step] = offsets;
    for (std::int32_t v = 0; v < self.count; ++v) {
        OWNG_DCT4(env7, compute)
        (itemOf<Env7>(env4->env7List), env4->scratch, src, first + v * step, mirror - 2 * v * step);
        OWNG_DCT4(env6, compute)(itemOf<Env6>(env4->env6List), dst, env4->scratch, v);
    }
}

// The transforms of an env3 or env7, from the input into the rows of dst.
template <typename Object>
RvnStatus runSubTransforms(const Object& self, const Offsets& offsets, Scalar* dst,
                           const Scalar* src)
{
    const auto [first, mirror, step] = offsets;
    if (const auto body = bodiesOf(self.mode).odd) {
        const std::ptrdiff_t L = std::ptrdiff_t{1} << self.mode;
        body(dst, src,
             {.near = first,
              .far = std::ptrdiff_t{first} + mirror - self.stride * (L - 1),
              .step = step,
              .stride = self.stride,
              .rowStep = self.parentRadix,
              .count = self.count});
        return RvnStatusNoError;
    }
    if (self.mode != innerSplitMode)
        return RvnStatusBadMode;
    runInnerSplits(self, offsets, dst, src);
    return RvnStatusNoError;
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
