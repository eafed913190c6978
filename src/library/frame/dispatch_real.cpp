// The dispatchers of the real DFT and of the Hartley transform.

#include "frame/dispatch.h"

namespace
{

constexpr unsigned lowestLength = 2;

template <typename Element> using Kernel = RvnStatus(const Element*, Element*, RvnScaleFlag);

} // namespace

// clang-format off
#define KERNEL_ADDRESS(N, transform, suffix, unused) transform##_##N##_##suffix,

// One dispatcher with its table of kernels.
#define DISPATCHER(transform, suffix, element)                                                     \
    namespace {                                                                                    \
    constexpr Kernel<element>* transform##suffix[] = {                                             \
        RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, transform, suffix, unused)};                                \
    }                                                                                              \
    RvnStatus transform##_##suffix(const element* src, element* dst, int32_t len,                  \
                                   RvnScaleFlag flag)                                              \
    {                                                                                              \
        return rvn::dispatch(transform##suffix, len, lowestLength, src, dst, flag);                \
    }

DISPATCHER(rvngDFTFwd_RToCCS,  32f, float)
DISPATCHER(rvngDFTFwd_RToCCS,  64f, double)
DISPATCHER(rvngDFTFwd_RToPack, 32f, float)
DISPATCHER(rvngDFTFwd_RToPack, 64f, double)
DISPATCHER(rvngDFTFwd_RToPerm, 32f, float)
DISPATCHER(rvngDFTFwd_RToPerm, 64f, double)
DISPATCHER(rvngDFTInv_CCSToR,  32f, float)
DISPATCHER(rvngDFTInv_CCSToR,  64f, double)
DISPATCHER(rvngDFTInv_PackToR, 32f, float)
DISPATCHER(rvngDFTInv_PackToR, 64f, double)
DISPATCHER(rvngDFTInv_PermToR, 32f, float)
DISPATCHER(rvngDFTInv_PermToR, 64f, double)
DISPATCHER(rvngHartley,        32f, float)
DISPATCHER(rvngHartley,        64f, double)
// clang-format on
