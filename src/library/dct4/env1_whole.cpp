// env1: the whole transform.
//   X[k] = sum over n of x[n] cos(pi (2n + 1)(2k + 1) / (4N))
// Up to 32 points a fixed body; above, the top split with radix r into r odd-frequency transforms
// of M = N/r points (env3) and M/2 output rows (env2).

#include "dct4/engine.h"
#include "dct4/modes.h"
#include "dct4/radix.h"

using namespace rvn::dct4;

namespace
{

constexpr std::int32_t splitMode = 6;

std::int32_t modeOfSize(std::int32_t size)
{
    return modeOf(size, 1, 5, splitMode);
}

// The numbers of what lies below a split of N points with radix r.

EnvFCompose generatorOf(std::int32_t N, std::int32_t r)
{
    return {.rowStepCopy = 2 * r,
            .angleDivisor = narrowed(std::int64_t{8} * N),
            .rows = N / (2 * r),
            .radix = r,
            .rowStep = 2 * r};
}

std::int32_t lastOddOf(std::int32_t N)
{
    return narrowed(std::int64_t{2} * N - 1);
}

Env2 outputsOf(std::int32_t N, std::int32_t r, EnvFCompose* generator)
{
    return {.radix = r,
            .size = N,
            .rowStep = 2 * r,
            .rows = N / (2 * r),
            .sizeCopy = N,
            .lastOdd = lastOddOf(N),
            .subSize = N / r,
            .generator = generator};
}

Env3 inputsOf(std::int32_t N, std::int32_t r)
{
    return {.subSize = N / r,
            .topSize = N,
            .lastOdd = lastOddOf(N),
            .stride = 2 * r,
            .count = r,
            .parentSize = N,
            .parentRadix = r};
}

} // namespace

Env1* OWNG_DCT4(env1, __init__)(Env1* self, Arena* arena, std::int32_t size)
{
    self->header = {.object = {OWNG_DCT4(env1, __del__), objectSize<Env1>},
                    .planFn = OWNG_DCT4(env1, plan),
                    .arena = arena};
    self->env2List = newList(arena);
    self->env3List = newList(arena);
    self->children = newList(arena);
    self->scratch = nullptr;
    self->mode = 0;
    self->size = size;
    return self;
}

RvnStatus OWNG_DCT4(env1, plan)(void* object)
{
    auto* const self = static_cast<Env1*>(object);
    self->mode = modeOfSize(self->size);
    if (self->mode != splitMode) {
        self->scratch = nullptr;
        return RvnStatusNoError;
    }
    if (divisorsIntNonTriv(&self->radix, self->size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;

    Arena* const arena = self->header.arena;
    const std::int32_t N = self->size;
    const std::int32_t r = self->radix;

    Env2* const env2 = allocate<Env2>(arena);
    EnvFCompose* const generator =
        OWNG_DCT4(envfCompose, __init__)(allocate<EnvFCompose>(arena), arena, generatorOf(N, r));
    EnvList_add(self->children, generator);
    OWNG_DCT4(env2, __init__)(env2, arena, outputsOf(N, r, generator));
    if (addPlanned(env2, self->children, self->env2List, OWNG_DCT4(env2, plan)) != RvnStatusNoError)
        return RvnStatusSizeError;

    Env3* const env3 = OWNG_DCT4(env3, __init__)(allocate<Env3>(arena), arena, inputsOf(N, r));
    if (addPlanned(env3, self->children, self->env3List, OWNG_DCT4(env3, plan)) != RvnStatusNoError)
        return RvnStatusSizeError;

    self->scratch = allocateElements(arena, N);
    return RvnStatusNoError;
}

void OWNG_DCT4(env1, __del__)(void* object)
{
    auto* const self = static_cast<Env1*>(object);
    // A plan that failed gives back a scratch array that it never took: its cursor ends too low,
    // which nothing sees.
    if (1 <= self->mode && self->mode <= splitMode)
        rvngArenaFree(self->header.arena, self->scratch,
                      self->mode == splitMode ? bytesOf(self->size) : 0);
    releaseList(self->env2List);
    releaseList(self->env3List);
    releaseChildren(self->children);
}

std::int32_t OWNG_DCT4(env1, mem)(std::int32_t size)
{
    const auto A = rvngAlignSize32Bytes;
    if (modeOfSize(size) != splitMode)
        return narrowed(static_cast<std::int64_t>(A(0) + A(sizeof(Env1)) + 3 * A(sizeof(EnvList))));
    std::int32_t r = 0;
    if (divisorsIntNonTriv(&r, size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;
    const std::int64_t rows = size / (2 * r);
    return bytesOfSplit<Env1, Env2, EnvFCompose>(size, 2 * r * rows,
                                                 OWNG_DCT4(env3, mem)(inputsOf(size, r)));
}

RvnStatus OWNG_DCT4(env1, compute)(const Env1* self, Scalar* dst, const Scalar* src)
{
    if (self->mode == splitMode) {
        OWNG_DCT4(env3, compute)(itemOf<Env3>(self->env3List), self->scratch, src);
        OWNG_DCT4(env2, compute)(itemOf<Env2>(self->env2List), dst, self->scratch);
        return RvnStatusNoError;
    }
    const auto body = bodiesOf(self->mode).direct;
    if (body == nullptr)
        return RvnStatusBadMode;
    body(dst, src);
    return RvnStatusNoError;
}
