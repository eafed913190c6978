// Dispatchers of the complex DFT: one comparison and one indexed jump.
//
// The tables hold the addresses of the exported kernels as the dynamic linker resolves them, so
// that an interposed kernel is what a dispatcher reaches. This file therefore holds no kernel, and
// the library is linked without -Bsymbolic and without link-time optimisation.

#include "rvngenmx.h"

namespace
{

constexpr int lowestLength = 2;
constexpr unsigned highestIndex = 62;

template <typename Element> using Kernel = RvnStatus (*)(const Element*, Element*, RvnScaleFlag);

// The kernels of one family and precision, length 2 first.
template <typename Element> using KernelTable = Kernel<Element>[highestIndex + 1];

#define KERNEL_ADDRESS(N, transform, suffix, unused) transform##_##N##_##suffix,

constexpr KernelTable<Rvn32fc> forward32fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 32fc, )};
constexpr KernelTable<Rvn64fc> forward64fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTFwd_CToC, 64fc, )};
constexpr KernelTable<Rvn32fc> inverse32fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 32fc, )};
constexpr KernelTable<Rvn64fc> inverse64fc = {
    RVNG_LENGTHS_2_TO_64(KERNEL_ADDRESS, rvngDFTInv_CToC, 64fc, )};

// Unsigned, the one comparison also refuses every length below the lowest.
template <typename Element>
RvnStatus dispatch(const KernelTable<Element>& kernels, const Element* src, Element* dst,
                   int32_t len, RvnScaleFlag flag)
{
    const unsigned index = static_cast<unsigned>(len) - lowestLength;
    if (index > highestIndex)
        return RvnStatusSizeError;
    return kernels[index](src, dst, flag);
}

} // namespace

RvnStatus rvngDFTFwd_CToC_32fc(const Rvn32fc* src, Rvn32fc* dst, int32_t len, RvnScaleFlag flag)
{
    return dispatch(forward32fc, src, dst, len, flag);
}

RvnStatus rvngDFTFwd_CToC_64fc(const Rvn64fc* src, Rvn64fc* dst, int32_t len, RvnScaleFlag flag)
{
    return dispatch(forward64fc, src, dst, len, flag);
}

RvnStatus rvngDFTInv_CToC_32fc(const Rvn32fc* src, Rvn32fc* dst, int32_t len, RvnScaleFlag flag)
{
    return dispatch(inverse32fc, src, dst, len, flag);
}

RvnStatus rvngDFTInv_CToC_64fc(const Rvn64fc* src, Rvn64fc* dst, int32_t len, RvnScaleFlag flag)
{
    return dispatch(inverse64fc, src, dst, len, flag);
}
