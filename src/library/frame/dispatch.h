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

inline constexpr int lowestLength = 2;

template <typename Element>
using LengthKernel = RvnStatus(const Element* src, Element* dst, RvnScaleFlag flag);

// Calls kernels[size - lowest], the smallest size first. Unsigned, the one comparison also refuses
// every size below the lowest.
template <typename Kernel, size_t count, typename... Arguments>
RvnStatus dispatch(Kernel* const (&kernels)[count], int32_t size, int lowest,
                   Arguments... arguments)
{
    const unsigned index = static_cast<unsigned>(size) - static_cast<unsigned>(lowest);
    if (index > count - 1)
        return RvnStatusSizeError;
    return kernels[index](arguments...);
}

} // namespace rvn

#define RVN_KERNEL_ADDRESS(size, transform, suffix, unused) transform##_##size##_##suffix,

// The dispatcher of a transform by length, with its table of kernels.
#define RVN_LENGTH_DISPATCHER(transform, suffix, element)                                          \
    static constexpr rvn::LengthKernel<element>* transform##Kernels_##suffix[] = {                 \
        RVNG_LENGTHS_2_TO_64(RVN_KERNEL_ADDRESS, transform, suffix, unused)};                      \
    RvnStatus transform##_##suffix(const element* src, element* dst, int32_t len,                  \
                                   RvnScaleFlag flag)                                              \
    {                                                                                              \
        return rvn::dispatch(transform##Kernels_##suffix, len, rvn::lowestLength, src, dst, flag); \
    }
