// The dispatchers of the complex DFT.

#include "frame/dispatch.h"

namespace
{

constexpr unsigned lowestLength = 2;

template <typename Element> using Kernel = RvnStatus(const Element*, Element*, RvnScaleFlag);

#define KERNEL_ADDRESS(N, transform, suffix, unused) transform##_##N##_##suffix,

constexpr Kernel<Rvn32fc>* forward32fc[] = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 32fc, unused)};
constexpr Kernel<Rvn64fc>* forward64fc[] = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 64fc, unused)};
constexpr Kernel<Rvn32fc>* inverse32fc[] = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 32fc, unused)};
constexpr Kernel<Rvn64fc>* inverse64fc[] = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 64fc, unused)};

} // namespace

RvnStatus rvngDFTFwd_CToC_32fc(const Rvn32fc* src, Rvn32fc* dst, int32_t len, RvnScaleFlag flag)
{
    return rvn::dispatch(forward32fc, len, lowestLength, src, dst, flag);
}

RvnStatus rvngDFTFwd_CToC_64fc(const Rvn64fc* src, Rvn64fc* dst, int32_t len, RvnScaleFlag flag)
{
    return rvn::dispatch(forward64fc, len, lowestLength, src, dst, flag);
}

RvnStatus rvngDFTInv_CToC_32fc(const Rvn32fc* src, Rvn32fc* dst, int32_t len, RvnScaleFlag flag)
{
    return rvn::dispatch(inverse32fc, len, lowestLength, src, dst, flag);
}

RvnStatus rvngDFTInv_CToC_64fc(const Rvn64fc* src, Rvn64fc* dst, int32_t len, RvnScaleFlag flag)
{
    return rvn::dispatch(inverse64fc, len, lowestLength, src, dst, flag);
}
