// The dispatchers of the Walsh-Hadamard transform. They pass the work memory on at every order,
// also to kernels that ignore it.

#include "frame/dispatch.h"

namespace
{

constexpr unsigned lowestOrder = 1;

template <typename Element> using Kernel = RvnStatus(const Element*, Element*, RvnScaleFlag, void*);

#define KERNEL_ADDRESS(k, suffix, unused1, unused2) rvngWHT_##k##_##suffix,

constexpr Kernel<float>* kernels32f[] = {RVNG_ORDERS_1_TO_13(KERNEL_ADDRESS, 32f, unused, unused)};
constexpr Kernel<double>* kernels64f[] = {RVNG_ORDERS_1_TO_13(KERNEL_ADDRESS, 64f, unused, unused)};

} // namespace

RvnStatus rvngWHT_32f(const float* src, float* dst, int32_t order, RvnScaleFlag flag, void* buffer)
{
    return rvn::dispatch(kernels32f, order, lowestOrder, src, dst, flag, buffer);
}

RvnStatus rvngWHT_64f(const double* src, double* dst, int32_t order, RvnScaleFlag flag,
                      void* buffer)
{
    return rvn::dispatch(kernels64f, order, lowestOrder, src, dst, flag, buffer);
}
