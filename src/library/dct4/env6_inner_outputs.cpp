// env6: the output rows of an inner split. Row q twiddles the values of frequency q of the r'
// sub-transforms and combines them by a complex DFT of r' points.

#include "dct4/engine.h"
#include "dct4/modes.h"
#include "dct4/trigonometry.h"

using namespace rvn::dct4;

namespace
{

// A section of the table: for each row i, and each t below `steps`, the pairs cos, sin of
// pi c k (x + t), k = 1 to pairs, where x is the generator's value of the row. Everything is asked
// for anew and rounded to the element type: x + t, then its product by the exact constant c k.
struct Section {
    std::int32_t steps;
    std::int32_t pairs;
    Element c;
};

std::ptrdiff_t lengthOf(const Section& section, std::int32_t rows)
{
    return std::ptrdiff_t{2} * section.steps * section.pairs * rows;
}

Element* fill(Element* table, const Section& section, std::int32_t rows, const EnvLambda* generator)
{
    const auto angle = [&](std::int32_t i, std::int32_t t, std::int32_t k) {
        const Element x = generator->header.atFn(generator, i, 0) + static_cast<Element>(t);
        return section.c * static_cast<Element>(k) * x;
    };
    for (std::int32_t i = 0; i < rows; ++i) {
        for (std::int32_t t = 0; t < section.steps; ++t) {
            for (std::int32_t k = 1; k <= section.pairs; ++k) {
                *table++ = RVNG_DCT4(rvngCosPi)(angle(i, t, k));
                *table++ = RVNG_DCT4(rvngSinPi)(angle(i, t, k));
            }
        }
    }
    return table;
}

// Rows of radix 2, 4 and 8 run in one stage; 16 and 32 in two, r'/4 by 4, with a section each.
constexpr Section firstStage(std::int32_t r)
{
    const std::int32_t radix = r <= 8 ? r : r / 4;
    return {1, radix - 1, Element{2} / static_cast<Element>(radix)};
}

constexpr Section secondStage(std::int32_t r)
{
    return r <= 8 ? Section{} : Section{r / 4, 3, Element{2} / static_cast<Element>(r)};
}

// Of radix 32 the section of the second stage stands first in 32f, and second in 64f.
constexpr bool secondStageStandsFirst(std::int32_t r)
{
    return r == 32 && sizeof(Element) == sizeof(float);
}

void fillTable(Element* table, std::int32_t r, std::int32_t rows, const EnvLambda* generator)
{
    const bool isSwapped = secondStageStandsFirst(r);
    Element* const behind =
        fill(table, isSwapped ? secondStage(r) : firstStage(r), rows, generator);
    fill(behind, isSwapped ? firstStage(r) : secondStage(r), rows, generator);
}

// Where the sections of the two stages begin.
struct Stages {
    const Element* first;
    const Element* second;
};

Stages stagesOf(const Element* table, std::int32_t r, std::int32_t rows)
{
    return secondStageStandsFirst(r) ? Stages{table + lengthOf(secondStage(r), rows), table}
                                     : Stages{table, table + lengthOf(firstStage(r), rows)};
}

// Rows that do not lie side by side, one by one: never in a plan as it was built.
[[gnu::cold, gnu::noinline]] void runApart(const Env6& self, Scalar* dst, const Scalar* src,
                                           const Stages& stages, const InnerRows& rows)
{
    const std::int32_t r = 1 << self.mode;
    const std::ptrdiff_t step = 2 * rows.rowStep;
    for (std::int32_t q = 0; q < rows.count; ++q)
        bodiesOf(self.mode).innerRow(dst + step * q, src + std::ptrdiff_t{self.rowStep} * q,
                                     stages.first + lengthOf(firstStage(r), q),
                                     stages.second + lengthOf(secondStage(r), q),
                                     {.far = rows.far - 2 * step * q,
                                      .stride = rows.stride,
                                      .rowStep = rows.rowStep,
                                      .count = 1});
}

std::int64_t tableLength(const Env6* self)
{
    return (std::int64_t{2} * self->radix - 2) * self->rows;
}

} // namespace

Env6* OWNG_DCT4(env6, __init__)(Env6* self, Arena* arena, const Env6& numbers)
{
    *self = numbers;
    self->header = {.object = {OWNG_DCT4(env6, __del__), objectSize<Env6>},
                    .planFn = OWNG_DCT4(env6, plan),
                    .arena = arena};
    self->children = newList(arena);
    return self;
}

RvnStatus OWNG_DCT4(env6, plan)(void* object)
{
    auto* const self = static_cast<Env6*>(object);
    self->mode = modeOf(self->radix, 1, 5, 0);
    if (self->mode == 0)
        return RvnStatusSizeError;
    self->twiddles = allocateElements(self->header.arena, tableLength(self));
    fillTable(self->twiddles, self->radix, self->rows, self->generator);
    return RvnStatusNoError;
}

void OWNG_DCT4(env6, __del__)(void* object)
{
    auto* const self = static_cast<Env6*>(object);
    if (1 <= self->mode && self->mode <= 5)
        rvngArenaFree(self->header.arena, self->twiddles, bytesOf(tableLength(self)));
    releaseChildren(self->children);
}

RvnStatus OWNG_DCT4(env6, compute)(const Env6* self, Scalar* dst, const Scalar* src, std::int32_t j)
{
    return OWNG_DCT4(env6, rows)(self, dst + j, src, self->parentRadix);
}

// Frequency k of the level's transform has its parts at outputStep 2k and outputStep (2k + 1). The
// mirror images of row q are at k = M2 - 1 - q + M2 s, counted from the far end.
RvnStatus OWNG_DCT4(env6, rows)(const Env6* self, Scalar* dst, const Scalar* src,
                                std::ptrdiff_t outputStep)
{
    const auto body = bodiesOf(self->mode).innerRow;
    if (body == nullptr)
        return RvnStatusBadMode;
    const std::int32_t r = 1 << self->mode;
    const std::ptrdiff_t M2 = self->subSize;
    const InnerRows rows{.far = 2 * outputStep * (self->lastOdd - M2 * (r - 1)),
                         .stride = 2 * outputStep * M2,
                         .rowStep = outputStep,
                         .count = self->rows};
    const Stages stages = stagesOf(self->twiddles, r, self->rows);
    if (self->rowStep == 2 * r)
        body(dst, src, stages.first, stages.second, rows);
    else
        runApart(*self, dst, src, stages, rows);
    return RvnStatusNoError;
}
