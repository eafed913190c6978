// What the tables of twiddles are filled from: a value for a row and a position in it.
//
//   envlambda     x(i) = (i + 1/2) r/M, the twiddles of row i being e^(i pi x v / r)
//   envfCompose   cos and sin of pi (2q + 1)(2k + 1) / (4N), in turn, for row q and k = 0 to r - 1

#include "dct4/engine.h"
#include "dct4/trigonometry.h"

using namespace rvn::dct4;

EnvLambda* OWNG_DCT4(envlambda, __init__)(EnvLambda* self, Arena* arena, const EnvLambda& numbers)
{
    *self = numbers;
    self->header = {.object = {OWNG_DCT4(envlambda, __del__), objectSize<EnvLambda>},
                    .atFn = OWNG_DCT4(envlambda, at),
                    .arena = arena};
    return self;
}

void OWNG_DCT4(envlambda, __del__)(void* /*self*/) {}

Element OWNG_DCT4(envlambda, at)(const void* self, std::int32_t i, std::int32_t /*j*/)
{
    const auto& [header, numerator, denominator] = *static_cast<const EnvLambda*>(self);
    return (static_cast<Element>(i) + Element{0.5}) / static_cast<Element>(numerator / denominator);
}

EnvFCompose* OWNG_DCT4(envfCompose, __init__)(EnvFCompose* self, Arena* arena,
                                              const EnvFCompose& numbers)
{
    *self = numbers;
    self->header = {.object = {OWNG_DCT4(envfCompose, __del__), objectSize<EnvFCompose>},
                    .atFn = OWNG_DCT4(envfCompose, at),
                    .arena = arena};
    return self;
}

void OWNG_DCT4(envfCompose, __del__)(void* /*self*/) {}

Element OWNG_DCT4(envfCompose, at)(const void* self, std::int32_t i, std::int32_t j)
{
    const auto* const generator = static_cast<const EnvFCompose*>(self);
    const std::int32_t index = i * generator->rowStep + j;
    const std::int32_t q = index / 2 / generator->radix;
    const std::int32_t k = index / 2 % generator->radix;
    const auto odd = [](std::int32_t n) { return 2 * static_cast<std::uint32_t>(n) + 1; };
    const auto angle = static_cast<std::int32_t>(2 * odd(q) * odd(k)); // wraps beyond 32 bits
    const Element x = static_cast<Element>(angle) / static_cast<Element>(generator->angleDivisor);
    return index % 2 != 0 ? RVNG_DCT4(rvngSinPi)(x) : RVNG_DCT4(rvngCosPi)(x);
}
