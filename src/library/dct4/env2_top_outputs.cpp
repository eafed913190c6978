// env2: the output rows of the top split. Row q twiddles the values of frequency q of the r
// sub-sequences and combines them into 2r outputs.

#include "dct4/bodies.h"
#include "dct4/engine.h"
#include "dct4/pair_order.h"
#include "dct4/panels.h"

using namespace rvn::dct4;

namespace
{

// Row q holds the pairs cos, sin of pi (2q + 1)(2j + 1) / (4N).
void fillTable(Element* table, std::int32_t r, std::int32_t rows, const EnvFCompose* generator)
{
    const auto at = generator->header.atFn;
    for (std::int32_t q = 0; q < rows; ++q) {
        for (std::int32_t place = 0; place < r; ++place) {
            const std::int32_t j = pairIndex(r, place);
            *table++ = at(generator, q, 2 * j);
            *table++ = at(generator, q, 2 * j + 1);
        }
    }
}

std::int64_t tableLength(const Env2* self)
{
    return std::int64_t{self->rows} * self->rowStep;
}

} // namespace

Env2* OWNG_DCT4(env2, __init__)(Env2* self, Arena* arena, std::int32_t radix, std::int32_t size,
                                std::int32_t rowStep, std::int32_t rows, std::int32_t sizeCopy,
                                std::int32_t lastOdd, std::int32_t subSize, EnvFCompose* generator)
{
    *self = {.header = {.object = {OWNG_DCT4(env2, __del__), objectSize<Env2>},
                        .planFn = OWNG_DCT4(env2, plan),
                        .arena = arena},
             .children = newList(arena),
             .twiddles = nullptr,
             .mode = 0,
             .radix = radix,
             .size = size,
             .rowStep = rowStep,
             .rows = rows,
             .sizeCopy = sizeCopy,
             .lastOdd = lastOdd,
             .subSize = subSize,
             .generator = generator};
    return self;
}

RvnStatus OWNG_DCT4(env2, plan)(void* object)
{
    auto* const self = static_cast<Env2*>(object);
    self->mode = modeOf(self->radix, 0, 5, -1) + 1;
    if (self->mode == 0)
        return RvnStatusSizeError;
    self->twiddles = allocateElements(self->header.arena, tableLength(self));
    fillTable(self->twiddles, self->radix, self->rows, self->generator);
    return RvnStatusNoError;
}

void OWNG_DCT4(env2, __del__)(void* object)
{
    auto* const self = static_cast<Env2*>(object);
    if (1 <= self->mode && self->mode <= 6)
        rvngArenaFree(self->header.arena, self->twiddles, bytesOf(tableLength(self)));
    releaseChildren(self->children);
}

RvnStatus OWNG_DCT4(env2, compute)(const Env2* self, Scalar* dst, const Scalar* src)
{
    // The outputs of negative s lie at M (-s) - 1 - q, counted from the far end.
    const std::ptrdiff_t M = self->subSize;
    const TopRows rows{
        .far = self->lastOdd - M * (self->rowStep - 1), .stride = M, .count = self->rows};
    const Scalar* const twiddles = self->twiddles;
    switch (self->mode) {
    case 1:
        OWNG_DCT4(topRow, 1)(dst, src, twiddles, rows);
        break;
    case 2:
        OWNG_DCT4(topRow, 2)(dst, src, twiddles, rows);
        break;
    case 3:
        OWNG_DCT4(topRow, 4)(dst, src, twiddles, rows);
        break;
    case 4:
        OWNG_DCT4(topRow, 8)(dst, src, twiddles, rows);
        break;
    case 5:
        OWNG_DCT4(topRow, 16)(dst, src, twiddles, rows);
        break;
    case 6:
        if (isPowerOfTwo(self->lastOdd) && M >= longStride)
            storeInLines<OWNG_DCT4(topRow, 32), 32>(dst, src, twiddles, rows);
        else
            OWNG_DCT4(topRow, 32)(dst, src, twiddles, rows);
        break;
    default:
        return RvnStatusBadMode;
    }
    return RvnStatusNoError;
}
