// env4: the inner split of one long odd-frequency transform of M points with radix r', by
// decimation in time: r' transforms of M/r' points (env7), then M/(2r') output rows (env6). It
// holds both and the scratch array between them; whoever holds it runs them.

#include "dct4/engine.h"
#include "dct4/radix.h"

using namespace rvn::dct4;

namespace
{

// The numbers of what lies below an inner split with radix r.

Env6 outputsOf(const Env4& self, std::int32_t r, EnvLambda* generator)
{
    const std::int32_t M = self.size;
    return {.radix = r,
            .size = M,
            .rowStep = 2 * r,
            .rows = M / (2 * r),
            .parentSize = self.parentSize,
            .halfSize = M / 2,
            .lastOdd = M - 1,
            .parentRadix = self.parentRadix,
            .subSize = M / r,
            .generator = generator};
}

Env7 inputsOf(const Env4& self, std::int32_t r)
{
    return {.subSize = self.size / r,
            .topSize = self.topSize,
            .topSizeAgain = self.topSizeAgain,
            .stride = narrowed(std::int64_t{self.stride} * r),
            .parentStride = self.stride,
            .count = r,
            .parentSize = self.size,
            .parentRadix = r};
}

} // namespace

Env4* OWNG_DCT4(env4, __init__)(Env4* self, Arena* arena, const Env4& numbers)
{
    *self = numbers;
    self->header = {.object = {OWNG_DCT4(env4, __del__), objectSize<Env4>},
                    .planFn = OWNG_DCT4(env4, plan),
                    .arena = arena};
    self->env6List = newList(arena);
    self->env7List = newList(arena);
    self->children = newList(arena);
    return self;
}

RvnStatus OWNG_DCT4(env4, plan)(void* object)
{
    auto* const self = static_cast<Env4*>(object);
    self->mode = 1;
    if (divisorsIntNonTriv(&self->radix, self->size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;

    Arena* const arena = self->header.arena;
    const std::int32_t r = self->radix;

    Env6* const env6 = allocate<Env6>(arena);
    EnvLambda* const generator = OWNG_DCT4(envlambda, __init__)(
        allocate<EnvLambda>(arena), arena, {.numerator = self->size, .denominator = r});
    EnvList_add(self->children, generator);
    OWNG_DCT4(env6, __init__)(env6, arena, outputsOf(*self, r, generator));
    if (addPlanned(env6, self->children, self->env6List, OWNG_DCT4(env6, plan)) != RvnStatusNoError)
        return RvnStatusSizeError;

    Env7* const env7 = OWNG_DCT4(env7, __init__)(allocate<Env7>(arena), arena, inputsOf(*self, r));
    if (addPlanned(env7, self->children, self->env7List, OWNG_DCT4(env7, plan)) != RvnStatusNoError)
        return RvnStatusSizeError;

    self->scratch = allocateElements(arena, self->size);
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

std::int32_t OWNG_DCT4(env4, mem)(const Env4& numbers)
{
    const std::int32_t M = numbers.size;
    std::int32_t r = 0;
    if (divisorsIntNonTriv(&r, M / 2) != RvnStatusNoError)
        return RvnStatusSizeError;
    const std::int64_t rows = M / (2 * r);
    return bytesOfSplit<Env4, Env6, EnvLambda>(M, (2 * r - 2) * rows,
                                               OWNG_DCT4(env7, mem)(inputsOf(numbers, r)));
}
