// What a call finds in its thread, and leaves there: rounding modes and the treatment of subnormals
// are obeyed and kept, and a small stack is enough.

#include "calls.h"

#include <algorithm>
#include <cfenv>
#include <tuple>

#include <immintrin.h>
#include <pthread.h>

namespace rvn::tests
{

namespace
{

constexpr unsigned flushing = _MM_FLUSH_ZERO_ON | _MM_DENORMALS_ZERO_ON;

// The control bits of the two floating-point units, without the flags that arithmetic raises.
auto controls()
{
    unsigned short x87;
    asm volatile("fnstcw %0" : "=m"(x87));
    return std::tuple(_mm_getcsr() & ~_MM_EXCEPT_MASK, x87);
}

// The result of a call under a rounding mode, with subnormals as they are or taken for zeros.
template <typename Real>
std::vector<Real> resultUnder(int mode, unsigned flush, const Call<Real>& call,
                              const std::vector<Real>& x)
{
    std::fesetround(mode);
    _mm_setcsr((_mm_getcsr() & ~flushing) | flush);
    const auto before = controls();
    const auto result = call.run(x);
    const auto after = controls();
    std::fesetenv(FE_DFL_ENV);
    EXPECT_EQ(before, after) << call.name;
    return result;
}

template <typename Real> bool isZero(const std::vector<Real>& values)
{
    return std::ranges::all_of(values, [](Real value) { return value == 0; });
}

template <typename Real> class Environment : public ::testing::Test
{
};

TYPED_TEST_SUITE(Environment, Reals);

TYPED_TEST(Environment, RoundingModesAndSubnormalsAreTheCallersAndKept)
{
    for (const auto& call : everyCall<TypeParam>()) {
        const auto x = call.input(13);
        const auto down = resultUnder(FE_DOWNWARD, 0, call, x);
        const auto up = resultUnder(FE_UPWARD, 0, call, x);
        EXPECT_FALSE(haveSameBits(down, up)) << call.name;

        std::vector<TypeParam> small(x.size());
        for (std::size_t i = 0; i < x.size(); ++i)
            small[i] = std::copysign(std::numeric_limits<TypeParam>::denorm_min() * 4096, x[i]);
        EXPECT_TRUE(isZero(resultUnder(FE_TONEAREST, flushing, call, small))) << call.name;
        EXPECT_FALSE(isZero(resultUnder(FE_TONEAREST, 0, call, small))) << call.name;
    }
}

TYPED_TEST(Environment, RefusalsAndQueriesKeepThemToo)
{
    std::fesetround(FE_UPWARD);
    _mm_setcsr(_mm_getcsr() | flushing);
    const auto before = controls();
    for (const auto& kernel : everyKernel<TypeParam>()) {
        kernel.run(nullptr, nullptr, RvnScaleNone);
        kernel.dispatcher(nullptr, nullptr, 0, RvnScaleNone, nullptr);
    }
    typename Dct4<TypeParam>::Spec* spec = nullptr;
    Dct4<TypeParam>::init(&spec, 3, nullptr);
    Dct4<TypeParam>::initAlloc(&spec, 3);
    Dct4<TypeParam>::run(nullptr, nullptr, nullptr);
    Dct4<TypeParam>::free(nullptr);
    int32_t bytes = 0;
    rvngWHTGetBufferSize_32f(8, &bytes);
    rvngWHTGetBufferSize_64f(8, &bytes);
    rvngenGetLibVersion();
    const auto after = controls();
    std::fesetenv(FE_DFL_ENV);
    EXPECT_EQ(before, after);
}

// An overflow ends on the page below the stack.
TYPED_TEST(Environment, AStackOf64KiBIsEnough)
{
    const auto everything = [](void*) -> void* {
        for (const auto& call : everyCall<TypeParam>())
            EXPECT_FALSE(isZero(call.run(call.input(17)))) << call.name;
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 1 << 16), 0);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, everything, nullptr), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

} // namespace

} // namespace rvn::tests
