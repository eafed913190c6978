// Dispatching by size: one comparison and one indexed jump.
//
// The tables hold the addresses of the exported kernels as the dynamic linker resolves them, so
// that an interposed kernel is what a dispatcher reaches. The files of the dispatchers therefore
// hold no kernel, and the library is linked without -Bsymbolic and without link-time optimisation.
#pragma once

#include "rvngenmx.h"

#include <stddef.h>

namespace rvn
{

// Calls kernels[size - lowest], the smallest size first. Unsigned, the one comparison also refuses
// every size below the lowest.
template <typename Kernel, size_t count, typename... Arguments>
RvnStatus dispatch(Kernel* const (&kernels)[count], int32_t size, unsigned lowest,
                   Arguments... arguments)
{
    const unsigned index = static_cast<unsigned>(size) - lowest;
    if (index > count - 1)
        return RvnStatusSizeError;
    return kernels[index](arguments...);
}

} // namespace rvn
