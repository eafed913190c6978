// What every transform promises of its arrays, wherever they lie: the same bits at every call, all
// of dst written, src kept unless dst overlaps it, and nothing touched outside them.
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

    // The result of call(src, dst). `leavesOut`: elements of dst may stay unwritten, and then
    // arrays do not overlap.
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
        if (!leavesOut)
            requireSameWhereTheyOverlap(input, call, first);
        return first;
    }

private:
    static constexpr std::size_t most = 2 * mostElements * sizeof(Real);

    static Real* at(std::span<std::byte> bytes) { return reinterpret_cast<Real*>(bytes.data()); }

    template <typename Call>
    void requireSameWhereTheyOverlap(FuzzedDataProvider& input, const Call& call,
                                     const std::vector<Real>& expected) const
    {
        static const tests::GuardedMemory both(most + 64);
        const auto in = static_cast<int>(x_.size());
        const auto out = static_cast<int>(outputs_ * sizeof(Real));
        const int reach = input.ConsumeBool() ? std::max(in, out) : 64;
        const int offset = input.ConsumeIntegralInRange(-std::min(out, reach), std::min(in, reach));
        const int srcAt = std::max(0, -offset);
        const int dstAt = std::max(0, offset);
        const Placement memory(both, std::max(srcAt + in, dstAt + out), input);
        const auto src = memory.bytes().subspan(srcAt, in);
        const auto dst = memory.bytes().subspan(dstAt, out);
        std::memcpy(src.data(), x_.data(), x_.size());
        require(call(at(src), at(dst)) == RvnStatusNoError, who_, " succeeds in place");
        require(std::memcmp(dst.data(), expected.data(), out) == 0, who_,
                " gives the same bits where dst - src is ", offset, " bytes");
        memory.requireNothingWrittenAround(who_);
    }

    std::string who_;
    std::span<const std::byte> x_;
    std::size_t outputs_;
};

} // namespace rvn::fuzz
