// env4: the inner split of one long odd-frequency transform of M points with radix r', by
// decimation in time: r' transforms of M/r' points (env7), then M/(2r') output rows (env6). It
// holds both and the scratch array between them; whoever holds it runs them.

#include "dct4/engine.h"
#include "dct4/radix.h"

using namespace rvn::dct4;

Env4* OWNG_DCT4(env4, __init__)(Env4* self, Arena* arena, std::int32_t size, std::int32_t topSize,
                                std::int32_t topSizeAgain, std::int32_t stride,
                                std::int32_t parentSize, std::int32_t parentRadix)
{
    self->header = {.object = {OWNG_DCT4(env4, __del__), objectSize<Env4>},
                    .planFn = OWNG_DCT4(env4, plan),
                    .arena = arena};
    self->env6List = newList(arena);
    self->env7List = newList(arena);
    self->children = newList(arena);
    self->scratch = nullptr;
    self->mode = 0;
    self->size = size;
    self->topSize = topSize;
    self->topSizeAgain = topSizeAgain;
    self->stride = stride;
    self->parentSize = parentSize;
    self->parentRadix = parentRadix;
    return self;
}

RvnStatus OWNG_DCT4(env4, plan)(void* object)
{
    auto* const self = static_cast<Env4*>(object);
    self->mode = 1;
    if (divisorsIntNonTriv(&self->radix, self->size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;

    Arena* const arena = self->header.arena;
    const std::int32_t M = self->size;
    const std::int32_t r = self->radix;

    Env6* const env6 = allocate<Env6>(arena);
    EnvLambda* const generator =
        OWNG_DCT4(envlambda, __init__)(allocate<EnvLambda>(arena), arena, M, r);
    EnvList_add(self->children, generator);
    OWNG_DCT4(env6, __init__)
    (env6, arena, r, M, 2 * r, M / (2 * r), self->parentSize, M / 2, M - 1, self->parentRadix,
     M / r, generator);
    EnvList_add(self->env6List, EnvList_add(self->children, env6));
    if (OWNG_DCT4(env6, plan)(itemOf<Env6>(self->env6List)) != RvnStatusNoError)
        return RvnStatusSizeError;

    Env7* const env7 = OWNG_DCT4(env7, __init__)(
        allocate<Env7>(arena), arena, M / r, self->topSize, self->topSizeAgain,
        narrowed(std::int64_t{self->stride} * r), self->stride, r, M, r);
    EnvList_add(self->env7List, EnvList_add(self->children, env7));
    if (OWNG_DCT4(env7, plan)(itemOf<Env7>(self->env7List)) != RvnStatusNoError)
        return RvnStatusSizeError;

    self->scratch = allocateElements(arena, M);
    return RvnStatusNoError;
}

void OWNG_DCT4(env4, __del__)(void* object)
{
    auto* const self = static_cast<Env4*>(object);
    if (self->mode == 1)
        rvngArenaFree(self->header.arena, self->scratch, bytesOf(self->size));
    releaseList(self->env6List);
    releaseList(self->env7List);
    releaseChildren(self->children);
}

std::int32_t OWNG_DCT4(env4, mem)(std::int32_t size, std::int32_t topSize,
                                  std::int32_t topSizeAgain, std::int32_t stride,
                                  std::int32_t /*parentSize*/, std::int32_t /*parentRadix*/)
{
    const auto A = rvngAlignSize32Bytes;
    const auto L = EnvList_add_mem;
    std::int32_t r = 0;
    if (divisorsIntNonTriv(&r, size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;
    const std::int64_t rows = size / (2 * r);

    const std::uint64_t outputs =
        A(bytesOf((2 * r - 2) * rows)) + A(sizeof(Env6)) + A(sizeof(EnvList));
    if (const std::int32_t bytes = narrowed(static_cast<std::int64_t>(outputs)); bytes < 0)
        return bytes;
    const std::int32_t inputs = OWNG_DCT4(env7, mem)(
        size / r, topSize, topSizeAgain, narrowed(std::int64_t{stride} * r), stride, r, size, r);
    if (inputs < 0)
        return inputs;
    return narrowed(static_cast<std::int64_t>(
        outputs + static_cast<std::uint64_t>(inputs) + A(bytesOf(size)) + A(sizeof(Env4)) +
        3 * A(sizeof(EnvList)) + L(2) + A(sizeof(EnvLambda)) + L(1) + L(2)));
}
