// Our side of the complex DFT: the addresses of the exported kernels by length, as the dynamic
// linker resolves them.
#pragma once

#include "options.h"
#include "rvngenmx.h"

#include <array>
#include <cstddef>
#include <type_traits>

namespace rvn::bench
{

template <typename Element>
using Kernel = RvnStatus (*)(const Element* src, Element* dst, RvnScaleFlag flag);

// Length 2 first.
template <typename Element>
using KernelTable = std::array<Kernel<Element>, longestLength - shortestLength + 1>;

#define KERNEL_ADDRESS(N, transform, suffix, unused) transform##_##N##_##suffix,

inline constexpr KernelTable<Rvn32fc> forward32fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 32fc, )};
inline constexpr KernelTable<Rvn32fc> inverse32fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 32fc, )};
inline constexpr KernelTable<Rvn64fc> forward64fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 64fc, )};
inline constexpr KernelTable<Rvn64fc> inverse64fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 64fc, )};

#undef KERNEL_ADDRESS

template <typename Element> constexpr const KernelTable<Element>& kernelTable(Direction direction)
{
    const bool forward = direction == Direction::Forward;
    if constexpr (std::is_same_v<Element, Rvn32fc>)
        return forward ? forward32fc : inverse32fc;
    else
        return forward ? forward64fc : inverse64fc;
}

template <typename Element> constexpr Kernel<Element> kernelOf(int length, Direction direction)
{
    return kernelTable<Element>(direction)[static_cast<std::size_t>(length - shortestLength)];
}

} // namespace rvn::bench
