// env6: the output rows of an inner split. Row q twiddles the values of frequency q of the r'
// sub-transforms and combines them by a complex DFT of r' points.

#include "dct4/bodies.h"
#include "dct4/engine.h"
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

// Rows of radix 2, 4 and 8 have one section; 16 and 32 run in two stages, r'/4 by 4.
constexpr Section oneSection(std::int32_t r)
{
    return {1, r - 1, Element{2} / static_cast<Element>(r)};
}

constexpr Section firstStage(std::int32_t r)
{
    return oneSection(r / 4);
}

constexpr Section secondStage(std::int32_t r)
{
    return {r / 4, 3, Element{2} / static_cast<Element>(r)};
}

// Of radix 32 the section of the second stage stands first in 32f, and second in 64f.
constexpr bool secondStageStandsFirst(std::int32_t r)
{
    return r == 32 && sizeof(Element) == sizeof(float);
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

void fillTable(Element* table, std::int32_t r, std::int32_t rows, const EnvLambda* generator)
{
    if (r <= 8) {
        fill(table, oneSection(r), rows, generator);
    } else if (secondStageStandsFirst(r)) {
        Element* const behind = fill(table, secondStage(r), rows, generator);
        fill(behind, firstStage(r), rows, generator);
    } else {
        Element* const behind = fill(table, firstStage(r), rows, generator);
        fill(behind, secondStage(r), rows, generator);
    }
}

std::int64_t tableLength(const Env6* self)
{
    return (std::int64_t{2} * self->radix - 2) * self->rows;
}

} // namespace

Env6* OWNG_DCT4(env6, __init__)(Env6* self, Arena* arena, std::int32_t radix, std::int32_t size,
                                std::int32_t rowStep, std::int32_t rows, std::int32_t parentSize,
                                std::int32_t halfSize, std::int32_t lastOdd,
                                std::int32_t parentRadix, std::int32_t subSize,
                                EnvLambda* generator)
{
    *self = {.header = {.object = {OWNG_DCT4(env6, __del__), objectSize<Env6>},
                        .planFn = OWNG_DCT4(env6, plan),
                        .arena = arena},
             .children = newList(arena),
             .twiddles = nullptr,
             .mode = 0,
             .radix = radix,
             .size = size,
             .rowStep = rowStep,
             .rows = rows,
             .parentSize = parentSize,
             .halfSize = halfSize,
             .lastOdd = lastOdd,
             .parentRadix = parentRadix,
             .subSize = subSize,
             .generator = generator};
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

// Frequency k of the level's transform has its parts at rowStep 2k and rowStep (2k + 1). The mirror
// images of row q are at k = M2 - 1 - q + M2 s, counted from the far end.
RvnStatus OWNG_DCT4(env6, rows)(const Env6* self, Scalar* dst, const Scalar* src,
                                std::ptrdiff_t rowStep)
{
    const std::ptrdiff_t M2 = self->subSize;
    const std::int32_t r = self->rowStep / 2;
    const InnerRows rows{.far = 2 * rowStep * (self->lastOdd - M2 * (r - 1)),
                         .stride = 2 * rowStep * M2,
                         .rowStep = rowStep,
                         .count = self->rows};
    const Element* const table = self->twiddles;
    switch (self->mode) {
    case 1:
        OWNG_DCT4(innerRow, 2)(dst, src, table, nullptr, rows);
        break;
    case 2:
        OWNG_DCT4(innerRow, 4)(dst, src, table, nullptr, rows);
        break;
    case 3:
        OWNG_DCT4(innerRow, 8)(dst, src, table, nullptr, rows);
        break;
    case 4: {
        const auto [first, second] = stagesOf(table, 16, self->rows);
        OWNG_DCT4(innerRow, 16)(dst, src, first, second, rows);
        break;
    }
    case 5: {
        const auto [first, second] = stagesOf(table, 32, self->rows);
        OWNG_DCT4(innerRow, 32)(dst, src, first, second, rows);
        break;
    }
    default:
        return RvnStatusBadMode;
    }
    return RvnStatusNoError;
}
