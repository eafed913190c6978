// What every transform promises of its arrays, wherever they lie: the same bits at every call, all
// of dst written, src kept, and nothing touched outside them.
#pragma once

#include "kernels.h"
#include "placement.h"

#include <cstring>
#include <vector>

namespace rvn::fuzz
{

inline constexpr std::size_t mostElements = (1 << 16) + 1;

// Numbers over a range of powers of two, now and then with some elements of any bits among them.
template <typename Real> std::vector<Real> drawnValues(FuzzedDataProvider& input, std::size_t count)
{
    const int spread =
        input.ConsumeBool()
            ? 0
            : input.ConsumeIntegralInRange<int>(0, std::numeric_limits<Real>::max_exponent - 2);
    const int patches = input.ConsumeBool() ? 0 : input.ConsumeIntegralInRange(1, 4);
    auto values = tests::randomParts<Real>(static_cast<int>(count),
                                           input.ConsumeIntegral<std::uint16_t>(), spread);
    for (int i = 0; i < patches; ++i)
        input.ConsumeData(&values[input.ConsumeIntegralInRange<std::size_t>(0, count - 1)],
                          sizeof(Real));
    return values;
}

template <typename Real> class Arrays
{
public:
    Arrays(std::string who, const std::vector<Real>& x, std::size_t outputs)
        : who_(std::move(who)), x_(std::as_bytes(std::span(x))), outputs_(outputs)
    {
    }

    // The result of call(src, dst). `leavesOut`: elements of dst may stay unwritten.
    template <typename Call>
    std::vector<Real> result(FuzzedDataProvider& input, const Call& call,
                             bool leavesOut = false) const
    {
        static const tests::GuardedMemory sources(most), results(most);
        const Placement src(sources, x_.size(), input);
        const Placement dst(results, outputs_ * sizeof(Real), input);
        std::memcpy(src.bytes().data(), x_.data(), x_.size());

        const auto run = [&](int prefill) {
            dst.fill(prefill);
            require(call(at(src.bytes()), at(dst.bytes())) == RvnStatusNoError, who_, " succeeds");
            require(std::memcmp(src.bytes().data(), x_.data(), x_.size()) == 0, who_, " keeps src");
            src.requireNothingWrittenAround(who_);
            dst.requireNothingWrittenAround(who_);
            std::vector<Real> values(outputs_);
            std::memcpy(values.data(), dst.bytes().data(), dst.bytes().size());
            return values;
        };
        const auto first = run(0);
        require(tests::haveSameBits(run(leavesOut ? 0 : 0xff), first), who_,
                " writes all of dst, with the same bits at every call");
        return first;
    }

private:
    static constexpr std::size_t most = 2 * mostElements * sizeof(Real);

    static Real* at(std::span<std::byte> bytes) { return reinterpret_cast<Real*>(bytes.data()); }

    std::string who_;
    std::span<const std::byte> x_;
    std::size_t outputs_;
};

} // namespace rvn::fuzz
