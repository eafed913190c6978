// env2: the output rows of the top split. Row q twiddles the values of frequency q of the r
// sub-sequences and combines them into 2r outputs.

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

// 2 r.
std::int32_t widthOf(const Env2& self)
{
    return 1 << self.mode;
}

// Rows that do not lie side by side, one by one: never in a plan as it was built.
[[gnu::cold, gnu::noinline]] void runApart(const Env2& self, Scalar* dst, const Scalar* src,
                                           const TopRows& rows)
{
    for (std::ptrdiff_t q = 0; q < rows.count; ++q)
        bodiesOf(self.mode).topRow(dst + q, src + self.rowStep * q,
                                   self.twiddles + widthOf(self) * q,
                                   {.far = rows.far - 2 * q, .stride = rows.stride, .count = 1});
}

} // namespace

Env2* OWNG_DCT4(env2, __init__)(Env2* self, Arena* arena, const Env2& numbers)
{
    *self = numbers;
    self->header = {.object = {OWNG_DCT4(env2, __del__), objectSize<Env2>},
                    .planFn = OWNG_DCT4(env2, plan),
                    .arena = arena};
    self->children = newList(arena);
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
    const auto body = bodiesOf(self->mode).topRow;
    if (body == nullptr)
        return RvnStatusBadMode;
    // The outputs of negative s lie at M (-s) - 1 - q, counted from the far end.
    const std::ptrdiff_t M = self->subSize;
    const std::int32_t width = widthOf(*self);
    const TopRows rows{.far = self->lastOdd - M * (width - 1), .stride = M, .count = self->rows};
    if (isStoredInLines(*self))
        storeInLines(*self, dst, src);
    else if (self->rowStep == width)
        body(dst, src, self->twiddles, rows);
    else
        runApart(*self, dst, src, rows);
    return RvnStatusNoError;
}
