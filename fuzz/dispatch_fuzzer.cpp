// The dispatchers of the Fourier and Hartley transforms: any length and flag, null pointers and
// pointers that must not be used, and arrays anywhere in guarded memory. A refusal is the first
// that applies and touches nothing; else the result is the kernel's of that length.

#include "arrays.h"
#include "entry.h"

#include <bit>
#include <bitset>

namespace rvn::fuzz
{

namespace
{

using tests::Kernel;
using tests::Layout;

// A kernel under a flag. libFuzzer keeps the inputs that reach a new one; these kernels count no
// edges of their own.
constexpr int mostCalls = 2 * 9 * 63 * 4;
__attribute__((section("__libfuzzer_extra_counters"))) std::uint8_t calls[mostCalls];

class Reached
{
public:
    ~Reached()
    {
        std::cerr << "kernels reached, each under 4 flags: " << calls_.count() << " of "
                  << calls_.size() << std::endl;
    }

    template <typename Real> void note(const Kernel<Real>& kernel, RvnScaleFlag flag)
    {
        const auto row = static_cast<int>(&kernel - tests::everyKernel<Real>().data());
        const int precision = sizeof(Real) == 4 ? 0 : 1;
        const int call = (precision * 9 * 63 + row) * 4 + std::countr_zero<unsigned>(flag);
        calls[call] = 1;
        calls_.set(call);
    }

private:
    std::bitset<mostCalls> calls_;
} reached;

// Mostly what is served, and around it.
std::int32_t drawnLength(FuzzedDataProvider& input)
{
    return input.ConsumeIntegralInRange(0, 7) == 7 ? input.ConsumeIntegral<std::int32_t>()
                                                   : input.ConsumeIntegralInRange(-1, 67);
}

RvnScaleFlag drawnFlag(FuzzedDataProvider& input)
{
    return input.ConsumeIntegralInRange(0, 7) == 7 ? input.ConsumeIntegral<RvnScaleFlag>()
                                                   : input.PickValueInArray(tests::everyFlag);
}

template <typename Real>
void requireTheKernels(const Kernel<Real>& kernel, RvnScaleFlag flag, FuzzedDataProvider& input)
{
    // The slots of CCS that hold no part are not read, and the last may not even exist.
    const int parts = kernel.parts();
    const bool fromCCS = kernel.source() == Layout::CCS;
    const bool toCCS = kernel.destination() == Layout::CCS;
    const auto x = drawnValues<Real>(input, parts + (fromCCS ? 1 : 0));
    const int outputs = tests::slotCount(kernel.destination(), parts);

    reached.note(kernel, flag);
    const Arrays<Real> arrays(kernel.name, x, outputs);
    const auto dispatched = [&](int length) {
        return [&kernel, flag, length](const Real* src, Real* dst) {
            return kernel.dispatcher(src, dst, length, flag, nullptr);
        };
    };
    const auto X = arrays.result(input, dispatched(kernel.size));
    const auto called = [&](const Real* src, Real* dst) { return kernel.run(src, dst, flag); };
    require(tests::haveSameBits(arrays.result(input, called), X), kernel.name,
            " and its dispatcher give the same bits");

    if (fromCCS) {
        auto other = x;
        other[1] = input.ConsumeBool() ? tests::nan<Real> : x[0] + 1;
        require(
            tests::haveSameBits(Arrays<Real>(kernel.name, other, outputs).result(input, called), X),
            kernel.name, " does not read the constant slots");
    }
    const auto isPositiveZero = [](Real value) { return value == 0 && !std::signbit(value); };
    if (toCCS)
        require(isPositiveZero(X[1]) && (parts % 2 == 1 || isPositiveZero(X[parts + 1])),
                kernel.name, " stores +0.0 in the constant slots");
}

template <typename Real> void fuzz(FuzzedDataProvider& input)
{
    const auto transform = static_cast<tests::Transform>(
        input.ConsumeIntegralInRange(0, static_cast<int>(tests::Transform::Hartley)));
    const std::int32_t length = drawnLength(input);
    const RvnScaleFlag flag = drawnFlag(input);
    const bool isServed = length >= 2 && length <= 64;
    const auto& kernel = tests::kernelOf<Real>(transform, isServed ? length : 2);
    const bool isFlag = std::ranges::count(tests::everyFlag, flag) > 0;

    static const tests::GuardedMemory memory(1);
    auto* const none = static_cast<Real*>(nullptr);
    auto* const some = memory.untouchable<Real>();
    Real* const src = input.ConsumeIntegralInRange(0, 7) == 7 ? none : some;
    Real* const dst = input.ConsumeIntegralInRange(0, 7) == 7 ? none : some;
    const RvnStatus refusal = src == none || dst == none ? RvnStatusNullPointer
                              : !isFlag                  ? RvnStatusFlagError
                                                         : RvnStatusNoError;
    const RvnStatus expected = isServed ? refusal : RvnStatusSizeError;
    if (expected == RvnStatusNoError)
        return requireTheKernels(kernel, flag, input);
    require(kernel.dispatcher(src, dst, length, flag, some) == expected, kernel.name,
            ": the dispatcher refuses length ", length, ", flag ", flag, " with ", expected);
    if (refusal != RvnStatusNoError)
        require(kernel.run(src, dst, flag) == refusal, kernel.name, " refuses flag ", flag,
                " with ", refusal);
}

} // namespace

} // namespace rvn::fuzz
