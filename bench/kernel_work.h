// The operations of our kernels, counted in the graphs that they are generated from.
#pragma once

#include "limit.h"
#include "options.h"

#include <type_traits>

namespace rvn::bench
{

template <typename Real>
inline constexpr Precision precisionOf =
    std::is_same_v<Real, float> ? Precision::Single : Precision::Double;

Work complexWork(int length, Precision precision); // of either direction
Work realWork(int length, Precision precision, Direction direction);
Work hartleyWork(int length, Precision precision);
Work whtWork(int order);
Work dct4Work(int size);

} // namespace rvn::bench
