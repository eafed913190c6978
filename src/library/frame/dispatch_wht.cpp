// The dispatchers of the Walsh-Hadamard transform. They pass the work memory on at every order,
// also to kernels that ignore it.

#include "frame/dispatch.h"
#include "wht/passes.h"

namespace
{

template <typename Element> using Kernel = RvnStatus(const Element*, Element*, RvnScaleFlag, void*);

constexpr Kernel<float>* kernels32f[] = {
    RVNG_ORDERS_1_TO_13(RVN_KERNEL_ADDRESS, rvngWHT, 32f, unused)};
constexpr Kernel<double>* kernels64f[] = {
    RVNG_ORDERS_1_TO_13(RVN_KERNEL_ADDRESS, rvngWHT, 64f, unused)};

} // namespace

RvnStatus rvngWHT_32f(const float* src, float* dst, int32_t order, RvnScaleFlag flag, void* buffer)
{
    return rvn::dispatch(kernels32f, order, rvn::wht::lowestOrder, src, dst, flag, buffer);
}

RvnStatus rvngWHT_64f(const double* src, double* dst, int32_t order, RvnScaleFlag flag,
                      void* buffer)
{
    return rvn::dispatch(kernels64f, order, rvn::wht::lowestOrder, src, dst, flag, buffer);
}
