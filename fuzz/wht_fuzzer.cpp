// The Walsh-Hadamard transform and its work memory: the size query at every 32-bit order; kernels
// and dispatchers with no buffer and with one of exactly the query's bytes, of any alignment and
// content, guarded or of the allocator. The reference is the plain loop, whose bits are promised.

#include "arrays.h"
#include "entry.h"
#include "rvncore.h"
#include "wht_reference.h"

#include <cstdint>

namespace rvn::fuzz
{

namespace
{

using tests::Kernel;

constexpr std::int32_t untouched = -4711;

template <typename Real> std::int32_t bytesOf(std::int32_t order)
{
    std::int32_t bytes = untouched;
    const RvnStatus status = sizeof(Real) == 4 ? rvngWHTGetBufferSize_32f(order, &bytes)
                                               : rvngWHTGetBufferSize_64f(order, &bytes);
    if (order < 1 || order > 13)
        require(status == RvnStatusSizeError && bytes == untouched, "order ", order, " is refused");
    else
        require(status == RvnStatusNoError && bytes >= 0 && (bytes > 0) == (order >= 8), "order ",
                order, " has buffer size ", bytes);
    return bytes;
}

template <typename Real>
bool haveSameNumbers(const std::vector<Real>& x, const std::vector<Real>& y)
{
    const auto isSame = [](Real a, Real b) {
        return std::memcmp(&a, &b, sizeof(Real)) == 0 || (std::isnan(a) && std::isnan(b));
    };
    return std::ranges::equal(x, y, isSame);
}

void requireMemory(FuzzedDataProvider& input)
{
    const auto bytes = input.ConsumeBool() ? input.ConsumeIntegral<std::int32_t>()
                                           : input.ConsumeIntegralInRange(-1, 1 << 17);
    if (bytes > 1 << 20)
        return;
    auto* const block = static_cast<std::byte*>(rvnMalloc(bytes));
    require((block == nullptr) == (bytes < 0), "a block of ", bytes, " bytes");
    require(reinterpret_cast<std::uintptr_t>(block) % 64 == 0, "blocks are aligned to 64 bytes");
    std::fill_n(block, std::max(0, bytes), std::byte{0xa5});
    rvnFree(block);
}

// What is refused by kernel and dispatcher, with memory at hand that must not be touched.
template <typename Real> void refuse(FuzzedDataProvider& input, const Kernel<Real>& kernel)
{
    static const tests::GuardedMemory memory(1);
    auto* const some = memory.untouchable<Real>();
    auto* const none = static_cast<Real*>(nullptr);
    const std::int32_t order = input.ConsumeBool() ? input.ConsumeIntegral<std::int32_t>()
                                                   : input.ConsumeIntegralInRange(-2, 16);
    const auto flag = input.ConsumeIntegral<RvnScaleFlag>();
    bytesOf<Real>(order);
    if (order < 1 || order > 13)
        require(kernel.dispatcher(input.ConsumeBool() ? some : none, none, order, flag, some) ==
                    RvnStatusSizeError,
                "the dispatcher refuses order ", order);
    const bool isFlag = std::ranges::count(tests::everyFlag, flag) > 0;
    require(kernel.run(none, some, flag, some) == RvnStatusNullPointer &&
                kernel.run(some, none, flag, some) == RvnStatusNullPointer &&
                (isFlag || kernel.run(some, some, flag, some) == RvnStatusFlagError),
            kernel.name, " refuses null, then flag ", flag);
}

template <typename Real> void transform(FuzzedDataProvider& input, const Kernel<Real>& kernel)
{
    static const tests::GuardedMemory unused(1), buffers(sizeof(Real) << 14);
    const RvnScaleFlag flag = input.PickValueInArray(tests::everyFlag);
    const std::int32_t bytes = bytesOf<Real>(kernel.size);
    const Placement buffer(buffers, bytes, input);
    buffer.fill(input.ConsumeIntegral<std::uint8_t>());
    void* const work = bytes == 0 ? unused.untouchable<void>() : buffer.bytes().data();
    void* const workOrNone = input.ConsumeBool() ? nullptr : work;

    const auto x = drawnValues<Real>(input, kernel.length());
    const Arrays<Real> arrays(kernel.name, x, x.size());
    const auto X = arrays.result(
        input, [&](const Real* src, Real* dst) { return kernel.run(src, dst, flag, work); });
    require(haveSameNumbers(X, tests::byLoop(x, kernel.scale(flag))), kernel.name,
            " gives the bits of the plain loop");
    const auto dispatched = arrays.result(input, [&](const Real* src, Real* dst) {
        return kernel.dispatcher(src, dst, kernel.size, flag, workOrNone);
    });
    require(tests::haveSameBits(X, dispatched), kernel.name,
            " and its dispatcher give the same bits");
    buffer.requireNothingWrittenAround(kernel.name);
}

template <typename Real> void fuzz(FuzzedDataProvider& input)
{
    const auto& kernel =
        tests::kernelOf<Real>(tests::Transform::WalshHadamard, input.ConsumeIntegralInRange(1, 13));
    switch (input.ConsumeIntegralInRange(0, 7)) {
    case 7:
        return requireMemory(input);
    case 6:
        return refuse(input, kernel);
    default:
        return transform(input, kernel);
    }
}

} // namespace

} // namespace rvn::fuzz
