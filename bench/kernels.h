// Our side of the transforms by length: the addresses of the exported kernels, as the dynamic
// linker resolves them.
#pragma once

#include "options.h"
#include "rvngenmx.h"

#include <array>
#include <cstddef>
#include <type_traits>

// A complex number.
template <typename Real>
using Pair = std::conditional_t<std::is_same_v<Real, float>, Rvn32fc, Rvn64fc>;

template <typename Element>
using Kernel = RvnStatus (*)(const Element* src, Element* dst, RvnScaleFlag flag);

// Length 2 first.
template <typename Element>
using KernelTable = std::array<Kernel<Element>, longestLength - shortestLength + 1>;

// One transform, in both precisions.
template <typename Element32, typename Element64> struct Kernels {
    KernelTable<Element32> binary32;
    KernelTable<Element64> binary64;

    template <typename Real> constexpr auto of(int length) const
    {
        const auto index = static_cast<std::size_t>(length - shortestLength);
        if constexpr (std::is_same_v<Real, float>)
            return binary32[index];
        else
            return binary64[index];
    }
};

using ComplexKernels = Kernels<Rvn32fc, Rvn64fc>;
using RealKernels = Kernels<float, double>;

#define KERNEL_ADDRESS(N, transform, suffix, unused) transform##_##N##_##suffix,
#define KERNELS(transform, suffix)                                                                 \
    {                                                                                              \
        RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, transform, suffix, )                                  \
    }

inline constexpr ComplexKernels fwdCToC = {KERNELS(rvngDFTFwd_CToC, 32fc),
                                           KERNELS(rvngDFTFwd_CToC, 64fc)};
inline constexpr ComplexKernels invCToC = {KERNELS(rvngDFTInv_CToC, 32fc),
                                           KERNELS(rvngDFTInv_CToC, 64fc)};
inline constexpr RealKernels fwdRToCcs = {KERNELS(rvngDFTFwd_RToCCS, 32f),
                                          KERNELS(rvngDFTFwd_RToCCS, 64f)};
inline constexpr RealKernels fwdRToPack = {KERNELS(rvngDFTFwd_RToPack, 32f),
                                           KERNELS(rvngDFTFwd_RToPack, 64f)};
inline constexpr RealKernels fwdRToPerm = {KERNELS(rvngDFTFwd_RToPerm, 32f),
                                           KERNELS(rvngDFTFwd_RToPerm, 64f)};
inline constexpr RealKernels invCcsToR = {KERNELS(rvngDFTInv_CCSToR, 32f),
                                          KERNELS(rvngDFTInv_CCSToR, 64f)};
inline constexpr RealKernels invPackToR = {KERNELS(rvngDFTInv_PackToR, 32f),
                                           KERNELS(rvngDFTInv_PackToR, 64f)};
inline constexpr RealKernels invPermToR = {KERNELS(rvngDFTInv_PermToR, 32f),
                                           KERNELS(rvngDFTInv_PermToR, 64f)};
inline constexpr RealKernels hartleyKernels = {KERNELS(rvngHartley, 32f),
                                               KERNELS(rvngHartley, 64f)};

#undef KERNELS
#undef KERNEL_ADDRESS
