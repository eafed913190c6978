// The scalars through which a kernel reads src and writes dst: any alignment, and no assumption on
// what type the caller's memory has.
#pragma once

// These options let a compiler change what a kernel computes, and none of them says so by itself.
#if defined(__FAST_MATH__) || __FINITE_MATH_ONLY__ || defined(__ASSOCIATIVE_MATH__) ||             \
    defined(__RECIPROCAL_MATH__) || defined(__NO_SIGNED_ZEROS__)
#error "the kernels need strict floating point: compile them without -ffast-math and its parts"
#endif

namespace rvn
{

using Scalar32f __attribute__((may_alias, aligned(1))) = float;
using Scalar64f __attribute__((may_alias, aligned(1))) = double;

} // namespace rvn
