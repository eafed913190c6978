// The table of kernels.h, from the header's own list of lengths.

#include "kernels.h"

#include <type_traits>

namespace rvn::tests
{

namespace
{

// An exported function of any family on arrays of Reals. Only some take the buffer.
template <typename Real, typename Element, typename... Rest>
RvnStatus callOn(const Real* src, Real* dst,
                 RvnStatus (*function)(const Element*, Element*, Rest...),
                 std::type_identity_t<Rest>... rest)
{
    return function(reinterpret_cast<const Element*>(src), reinterpret_cast<Element*>(dst),
                    rest...);
}

template <typename Real, auto function>
RvnStatus asKernel(const Real* src, Real* dst, RvnScaleFlag flag, void* buffer)
{
    if constexpr (requires { function(src, dst, flag, buffer); })
        return function(src, dst, flag, buffer);
    else
        return callOn(src, dst, function, flag);
}

template <typename Real, auto function>
RvnStatus asDispatcher(const Real* src, Real* dst, int32_t size, RvnScaleFlag flag, void* buffer)
{
    if constexpr (requires { function(src, dst, size, flag, buffer); })
        return function(src, dst, size, flag, buffer);
    else
        return callOn(src, dst, function, size, flag);
}

#define RVN_TEST_KERNEL(N, function, suffix, transform)                                            \
    {#function "_" #N "_" #suffix, Transform::transform, N,                                        \
     asKernel<Real, function##_##N##_##suffix>, asDispatcher<Real, function##_##suffix>},

#define RVN_TEST_KERNELS(real, complex)                                                            \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_CToC, complex, Forward)                       \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_CToC, complex, Inverse)                       \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_RToCCS, real, ToCCS)                          \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_RToPack, real, ToPack)                        \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_RToPerm, real, ToPerm)                        \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_CCSToR, real, FromCCS)                        \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_PackToR, real, FromPack)                      \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_PermToR, real, FromPerm)                      \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngHartley, real, Hartley)                              \
    RVNG_ORDERS_1_TO_13(RVN_TEST_KERNEL, rvngWHT, real, WalshHadamard)

// Names become strings in a loop: compilers take minutes over a thousand at once.
template <typename Real> struct Row {
    const char* name;
    Transform transform;
    int size;
    RvnStatus (*kernel)(const Real*, Real*, RvnScaleFlag, void*);
    RvnStatus (*dispatcher)(const Real*, Real*, int32_t, RvnScaleFlag, void*);
};

template <typename Real, std::size_t count>
std::vector<Kernel<Real>> kernelsOf(const Row<Real> (&rows)[count])
{
    std::vector<Kernel<Real>> kernels;
    for (const auto& row : rows)
        kernels.push_back({row.name, row.transform, row.size, row.kernel, row.dispatcher});
    return kernels;
}

} // namespace

template <> const std::vector<Kernel<float>>& everyKernel()
{
    using Real = float;
    static constexpr Row<Real> rows[] = {RVN_TEST_KERNELS(32f, 32fc)};
    static const auto kernels = kernelsOf(rows);
    return kernels;
}

template <> const std::vector<Kernel<double>>& everyKernel()
{
    using Real = double;
    static constexpr Row<Real> rows[] = {RVN_TEST_KERNELS(64f, 64fc)};
    static const auto kernels = kernelsOf(rows);
    return kernels;
}

} // namespace rvn::tests
