// Which fixed bodies a mode stands for: the generated table of the precision.
#pragma once

#include "dct4/fixed_bodies.h"
#include "dct4/names.h"

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

inline const FixedBodies<Element>& bodiesOf(std::int32_t mode)
{
    constexpr auto& table = RVNG_DCT4(fixedBodies);
    const bool isMode = 0 <= mode && mode < static_cast<std::int32_t>(table.size());
    return table[isMode ? static_cast<std::size_t>(mode) : 0];
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
