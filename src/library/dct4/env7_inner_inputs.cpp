// env7: the input side of an inner split. Sub-transform v runs over every r'-th element from v on
// of its parent's sequence, and gives column v of the rows of env6.

#include "dct4/sub_transforms.h"

using namespace rvn::dct4;

Env7* OWNG_DCT4(env7, __init__)(Env7* self, Arena* arena, std::int32_t subSize,
                                std::int32_t topSize, std::int32_t topSizeAgain,
                                std::int32_t stride, std::int32_t parentStride, std::int32_t count,
                                std::int32_t parentSize, std::int32_t parentRadix)
{
    self->header = {.object = {OWNG_DCT4(env7, __del__), objectSize<Env7>},
                    .planFn = OWNG_DCT4(env7, plan),
                    .arena = arena};
    self->env4List = newList(arena);
    self->children = newList(arena);
    self->table = nullptr;
    self->mode = 0;
    self->subSize = subSize;
    self->topSize = topSize;
    self->topSizeAgain = topSizeAgain;
    self->stride = stride;
    self->parentStride = parentStride;
    self->count = count;
    self->parentSize = parentSize;
    self->parentRadix = parentRadix;
    return self;
}

RvnStatus OWNG_DCT4(env7, plan)(void* object)
{
    auto* const self = static_cast<Env7*>(object);
    return planSubTransforms(self, self->topSizeAgain);
}

void OWNG_DCT4(env7, __del__)(void* object)
{
    releaseSubTransforms(static_cast<Env7*>(object));
}

std::int32_t OWNG_DCT4(env7, mem)(std::int32_t subSize, std::int32_t topSize,
                                  std::int32_t topSizeAgain, std::int32_t stride,
                                  std::int32_t /*parentStride*/, std::int32_t /*count*/,
                                  std::int32_t parentSize, std::int32_t parentRadix)
{
    if (modeOfSubSize(subSize) != innerSplitMode)
        return static_cast<std::int32_t>(bytesOfHolder<Env7>());
    const std::int32_t env4 =
        OWNG_DCT4(env4, mem)(subSize, topSize, topSizeAgain, stride, parentSize, parentRadix);
    return env4 < 0 ? env4 : bytesOfHolder<Env7>(env4);
}

RvnStatus OWNG_DCT4(env7, compute)(const Env7* self, Scalar* dst, const Scalar* src, std::int32_t j,
                                   std::int32_t mirror)
{
    // j + mirror is where the element t = -M of the parent's sequence would be.
    const std::ptrdiff_t step = self->parentStride;
    return OWNG_DCT4(env7,
                     sweep)(self, dst, src,
                            {.near = j,
                             .far = j + std::ptrdiff_t{mirror} - step * (self->parentSize - 1),
                             .step = step});
}

// The parent's sequence, u[t], may lie anywhere: u[v + r' w] for w >= 0 is near + v step further by
// r' step each, and u[v - r'] is r' - 1 - v steps from far.
RvnStatus OWNG_DCT4(env7, sweep)(const Env7* self, Scalar* dst, const Scalar* src,
                                 const Sequence& sequence)
{
    const auto [near, far, step] = sequence;
    const std::ptrdiff_t r = self->count;
    const std::ptrdiff_t firstFar = far + (r - 1) * step;
    if (self->mode != innerSplitMode)
        return runOddBody(self->mode, dst, src,
                          {.near = near,
                           .far = firstFar,
                           .step = step,
                           .stride = r * step,
                           .rowStep = self->parentRadix,
                           .count = self->count});
    for (std::ptrdiff_t v = 0; v < r; ++v)
        runInnerSplit(self->env4List, dst + v, src,
                      {.near = near + v * step, .far = firstFar - v * step, .step = r * step},
                      self->parentRadix);
    return RvnStatusNoError;
}
