// The scalars through which a kernel reads src and writes dst: any alignment, and no assumption on
// what type the caller's memory has.
#pragma once

namespace rvn
{

using Scalar32f __attribute__((may_alias, aligned(1))) = float;
using Scalar64f __attribute__((may_alias, aligned(1))) = double;

} // namespace rvn
