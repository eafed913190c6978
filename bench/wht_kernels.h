// Our side of the Walsh-Hadamard transform: the addresses of the exported kernels by order, as the
// dynamic linker resolves them, and the bytes of work memory that they take.
#pragma once

#include "options.h"
#include "rvngenmx.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

template <typename Element>
using WhtKernel = RvnStatus (*)(const Element* src, Element* dst, RvnScaleFlag flag, void* buffer);

// Order 1 first.
template <typename Element>
using WhtKernelTable = std::array<WhtKernel<Element>, highestOrder - lowestOrder + 1>;

#define KERNEL_ADDRESS(k, suffix, unused, unused2) rvngWHT_##k##_##suffix,

inline constexpr WhtKernelTable<float> wht32f = {RVNG_ORDERS_1_TO_13(KERNEL_ADDRESS, 32f, , )};
inline constexpr WhtKernelTable<double> wht64f = {RVNG_ORDERS_1_TO_13(KERNEL_ADDRESS, 64f, , )};

#undef KERNEL_ADDRESS

template <typename Element> constexpr WhtKernel<Element> whtKernelOf(int order)
{
    const auto index = static_cast<std::size_t>(order - lowestOrder);
    if constexpr (std::is_same_v<Element, float>)
        return wht32f[index];
    else
        return wht64f[index];
}

template <typename Element> std::size_t whtBufferBytes(int order)
{
    std::int32_t bytes = 0;
    if constexpr (std::is_same_v<Element, float>)
        rvngWHTGetBufferSize_32f(order, &bytes);
    else
        rvngWHTGetBufferSize_64f(order, &bytes);
    return static_cast<std::size_t>(bytes);
}
