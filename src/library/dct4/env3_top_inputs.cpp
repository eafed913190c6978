// env3: the input side of the top split. Transform j runs over every 2r-th sample from j on, of the
// signal continued by x[-1 - n] = x[n], and gives column j of the rows of env2.

#include "dct4/panels.h"
#include "dct4/sub_transforms.h"

using namespace rvn::dct4;

Env3* OWNG_DCT4(env3, __init__)(Env3* self, Arena* arena, std::int32_t subSize,
                                std::int32_t topSize, std::int32_t lastOdd, std::int32_t stride,
                                std::int32_t count, std::int32_t parentSize,
                                std::int32_t parentRadix)
{
    self->header = {.object = {OWNG_DCT4(env3, __del__), objectSize<Env3>},
                    .planFn = OWNG_DCT4(env3, plan),
                    .arena = arena};
    self->env4List = newList(arena);
    self->children = newList(arena);
    self->table = nullptr;
    self->mode = 0;
    self->subSize = subSize;
    self->topSize = topSize;
    self->lastOdd = lastOdd;
    self->stride = stride;
    self->count = count;
    self->parentSize = parentSize;
    self->parentRadix = parentRadix;
    return self;
}

RvnStatus OWNG_DCT4(env3, plan)(void* object)
{
    auto* const self = static_cast<Env3*>(object);
    return planSubTransforms(self, self->topSize);
}

void OWNG_DCT4(env3, __del__)(void* object)
{
    releaseSubTransforms(static_cast<Env3*>(object));
}

std::int32_t OWNG_DCT4(env3, mem)(std::int32_t subSize, std::int32_t topSize,
                                  std::int32_t /*lastOdd*/, std::int32_t stride,
                                  std::int32_t /*count*/, std::int32_t parentSize,
                                  std::int32_t parentRadix)
{
    if (modeOfSubSize(subSize) != innerSplitMode)
        return static_cast<std::int32_t>(bytesOfHolder<Env3>());
    const std::int32_t env4 =
        OWNG_DCT4(env4, mem)(subSize, topSize, topSize, stride, parentSize, parentRadix);
    return env4 < 0 ? env4 : bytesOfHolder<Env3>(env4);
}

RvnStatus OWNG_DCT4(env3, compute)(const Env3* self, Scalar* dst, const Scalar* src)
{
    // u[-1] of the first sequence, counted from the far end of the input.
    const std::ptrdiff_t r = self->count;
    const std::ptrdiff_t far = self->lastOdd - std::ptrdiff_t{self->stride} * (self->subSize - 1);
    if (self->mode != innerSplitMode)
        return runOddBody(self->mode, dst, src,
                          {.near = 0,
                           .far = far,
                           .step = 1,
                           .stride = self->stride,
                           .rowStep = r,
                           .count = self->count});
    if (computedInPanels(self, dst, src))
        return RvnStatusNoError;
    const Env4* const split = innerSplitOf(self->env4List);
    if (split == nullptr)
        return RvnStatusNoError;
    const Env7* const inputs = itemOf<Env7>(split->env7List);
    const Env6* const outputs = itemOf<Env6>(split->env6List);
    for (std::int32_t j = 0; j < self->count; ++j) {
        OWNG_DCT4(env7, compute)(inputs, split->scratch, src, j, self->lastOdd - 2 * j);
        OWNG_DCT4(env6, compute)(outputs, dst, split->scratch, j);
    }
    return RvnStatusNoError;
}
