// env1: the whole transform.
//   X[k] = sum over n of x[n] cos(pi (2n + 1)(2k + 1) / (4N))
// Up to 32 points a fixed body; above, the top split with radix r into r odd-frequency transforms
// of M = N/r points (env3) and M/2 output rows (env2).

#include "dct4/bodies.h"
#include "dct4/engine.h"
#include "dct4/radix.h"

using namespace rvn::dct4;

namespace
{

constexpr std::int32_t splitMode = 6;

std::int32_t modeOfSize(std::int32_t size)
{
    return modeOf(size, 1, 5, splitMode);
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
    if (self->mode != splitMode)
        return RvnStatusNoError;
    if (divisorsIntNonTriv(&self->radix, self->size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;

    Arena* const arena = self->header.arena;
    const std::int32_t N = self->size;
    const std::int32_t r = self->radix;
    const std::int32_t rowStep = 2 * r;
    const std::int32_t rows = N / rowStep;
    const std::int32_t lastOdd = narrowed(std::int64_t{2} * N - 1);

    Env2* const env2 = allocate<Env2>(arena);
    EnvFCompose* const generator =
        OWNG_DCT4(envfCompose, __init__)(allocate<EnvFCompose>(arena), arena, rowStep,
                                         narrowed(std::int64_t{8} * N), rows, r, rowStep);
    EnvList_add(self->children, generator);
    OWNG_DCT4(env2, __init__)(env2, arena, r, N, rowStep, rows, N, lastOdd, N / r, generator);
    EnvList_add(self->env2List, EnvList_add(self->children, env2));
    if (OWNG_DCT4(env2, plan)(itemOf<Env2>(self->env2List)) != RvnStatusNoError)
        return RvnStatusSizeError;

    Env3* const env3 = OWNG_DCT4(env3, __init__)(allocate<Env3>(arena), arena, N / r, N, lastOdd,
                                                 rowStep, r, N, r);
    EnvList_add(self->env3List, EnvList_add(self->children, env3));
    if (OWNG_DCT4(env3, plan)(itemOf<Env3>(self->env3List)) != RvnStatusNoError)
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
    const auto L = EnvList_add_mem;
    if (modeOfSize(size) != splitMode)
        return narrowed(static_cast<std::int64_t>(A(0) + A(sizeof(Env1)) + 3 * A(sizeof(EnvList))));
    std::int32_t r = 0;
    if (divisorsIntNonTriv(&r, size / 2) != RvnStatusNoError)
        return RvnStatusSizeError;
    const std::int64_t rows = size / (2 * r);

    const std::uint64_t outputs = A(bytesOf(2 * r * rows)) + A(sizeof(Env2)) + A(sizeof(EnvList));
    if (const std::int32_t bytes = narrowed(static_cast<std::int64_t>(outputs)); bytes < 0)
        return bytes;
    const std::int32_t inputs = OWNG_DCT4(env3, mem)(
        size / r, size, narrowed(std::int64_t{2} * size - 1), 2 * r, r, size, r);
    if (inputs < 0)
        return inputs;
    return narrowed(static_cast<std::int64_t>(
        outputs + static_cast<std::uint64_t>(inputs) + A(bytesOf(size)) + A(sizeof(Env1)) +
        3 * A(sizeof(EnvList)) + L(2) + A(sizeof(EnvFCompose)) + L(1) + L(2)));
}

RvnStatus OWNG_DCT4(env1, compute)(const Env1* self, Scalar* dst, const Scalar* src)
{
    switch (self->mode) {
    case 1:
        OWNG_DCT4(direct, 2)(dst, src);
        break;
    case 2:
        OWNG_DCT4(direct, 4)(dst, src);
        break;
    case 3:
        OWNG_DCT4(direct, 8)(dst, src);
        break;
    case 4:
        OWNG_DCT4(direct, 16)(dst, src);
        break;
    case 5:
        OWNG_DCT4(direct, 32)(dst, src);
        break;
    case splitMode:
        OWNG_DCT4(env3, compute)(itemOf<Env3>(self->env3List), self->scratch, src);
        OWNG_DCT4(env2, compute)(itemOf<Env2>(self->env2List), dst, self->scratch);
        break;
    default:
        return RvnStatusBadMode;
    }
    return RvnStatusNoError;
}
