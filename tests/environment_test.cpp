// What a call finds in its thread, and leaves there: rounding modes and the treatment of subnormals
// are obeyed and kept, arithmetic raises the status flags and clears none, and a stack frame stays
// within its bound.

#include "calls.h"

#include <algorithm>
#include <cfenv>
#include <functional>
#include <tuple>

#include <immintrin.h>
#include <ucontext.h>

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
    std::feraiseexcept(FE_ALL_EXCEPT);
    call.run(x);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), FE_ALL_EXCEPT) << call.name << " clears a flag";
    std::feclearexcept(FE_ALL_EXCEPT);
    const auto result = call.run(x);
    EXPECT_TRUE(std::fetestexcept(FE_INEXACT) || mode == FE_TONEAREST)
        << call.name << " raises no flag";
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

#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
// How many bytes of a stack of its own a call writes to.
std::size_t stackOf(const std::function<void()>& call)
{
    static std::vector<std::byte> stack(1 << 19);
    static const std::function<void()>* entry;
    static ucontext_t caller, callee;
    constexpr std::byte unused{0xa5};
    std::ranges::fill(stack, unused);
    entry = &call;
    getcontext(&callee);
    callee.uc_stack = {.ss_sp = stack.data(), .ss_flags = 0, .ss_size = stack.size()};
    callee.uc_link = &caller;
    makecontext(
        &callee, [] { (*entry)(); }, 0);
    swapcontext(&caller, &callee);
    return stack.end() - std::ranges::find_if_not(stack, [](auto byte) { return byte == unused; });
}

TYPED_TEST(Environment, AKernelTakes2KiBOfStackAndADct4Takes40)
{
    std::vector<TypeParam> x(1 << 17), X(x.size());
    const std::size_t frame = stackOf([] {});
    for (const auto& kernel : everyKernel<TypeParam>()) {
        const auto run = [&] { kernel.run(x.data(), X.data(), RvnScaleFwdByN, nullptr); };
        run(); // the loader looks a function up at its first call, on the caller's stack
        // Room for a pointer to the test and for what rvnMalloc takes.
        EXPECT_LE(stackOf(run) - frame, (2u << 10) + 256) << kernel.name;
    }
    for (int size = 2; size <= 1 << 17; size *= 2) {
        const Dct4Plan<TypeParam> plan(size);
        const auto run = [&] { Dct4<TypeParam>::run(x.data(), X.data(), plan.spec()); };
        EXPECT_LE(stackOf(run) - frame, 40u << 10) << "DCT-IV of " << size;
    }
}
#endif

} // namespace

} // namespace rvn::tests
