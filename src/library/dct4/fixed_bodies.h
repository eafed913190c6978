// Which fixed body a mode stands for: one table for the objects that run one.
#pragma once

#include "dct4/bodies.h"
#include "dct4/names.h"

#include <array>

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

using DirectBody = void (*)(Scalar*, const Scalar*);
using OddBody = void (*)(Scalar*, const Scalar*, const Sequences&);
using TopRowBody = void (*)(Scalar*, const Scalar*, const Scalar*, const TopRows&);
using InnerRowBody = void (*)(Scalar*, const Scalar*, const Scalar*, const Scalar*,
                              const InnerRows&);

struct FixedBodies {
    DirectBody direct;
    OddBody odd;
    TopRowBody topRow;
    InnerRowBody innerRow;
};

// clang-format off
inline constexpr std::array<FixedBodies, 7> fixedBodies = {{
//   env1                   env3 and env7        env2                    env6
    {nullptr,               nullptr,             nullptr,                nullptr},
    {OWNG_DCT4(direct, 2),  OWNG_DCT4(odd, 2),   OWNG_DCT4(topRow, 1),   OWNG_DCT4(innerRow, 2)},
    {OWNG_DCT4(direct, 4),  OWNG_DCT4(odd, 4),   OWNG_DCT4(topRow, 2),   OWNG_DCT4(innerRow, 4)},
    {OWNG_DCT4(direct, 8),  OWNG_DCT4(odd, 8),   OWNG_DCT4(topRow, 4),   OWNG_DCT4(innerRow, 8)},
    {OWNG_DCT4(direct, 16), OWNG_DCT4(odd, 16),  OWNG_DCT4(topRow, 8),   OWNG_DCT4(innerRow, 16)},
    {OWNG_DCT4(direct, 32), OWNG_DCT4(odd, 32),  OWNG_DCT4(topRow, 16),  OWNG_DCT4(innerRow, 32)},
    {nullptr,               OWNG_DCT4(odd, 64),  OWNG_DCT4(topRow, 32),  nullptr},
}};
// clang-format on

// Those of a mode, or none.
inline const FixedBodies& bodiesOf(std::int32_t mode)
{
    const bool isMode = 0 <= mode && mode < static_cast<std::int32_t>(fixedBodies.size());
    return fixedBodies[isMode ? static_cast<std::size_t>(mode) : 0];
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
