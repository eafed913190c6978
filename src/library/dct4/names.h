// The names of the functions that exist once per precision, pasted together in this one place.
//
// Every file that includes this header is compiled twice, with DCT4_PRECISION defined as 32f and as
// 64f.
#pragma once

#include "frame/scalar.h"

#define DCT4_PASTE_3(a, b, c) a##b##c
#define DCT4_PASTE(a, b, c) DCT4_PASTE_3(a, b, c)

// OWNG_DCT4(env1, plan) is owngDCT4_32f_env1_plan, OWNG_DCT4(odd, 8) owngDCT4_32f_odd_8.
#define OWNG_DCT4(object, operation) DCT4_PASTE(owngDCT4_, DCT4_PRECISION, _##object##_##operation)

// RVNG_DCT4(rvngCosPi) is rvngCosPi_32f.
#define RVNG_DCT4(name) DCT4_PASTE(name, _, DCT4_PRECISION)

// What depends on the precision but not in its name, types and helpers, is in a namespace of its
// own: else the linker would take one precision's for both.
#define DCT4_NAMESPACE DCT4_PASTE(precision_, DCT4_PRECISION, )

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

using Element32f = float;
using Element64f = double;

// The precision's element, and the scalar through which arrays of it are accessed.
using Element = DCT4_PASTE(Element, DCT4_PRECISION, );
using Scalar = DCT4_PASTE(rvn::Scalar, DCT4_PRECISION, );

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
