// Bytes at a place that the input chooses in guarded memory: against the page before them, against
// the page behind them, or up to 63 bytes away from it. What lies around them keeps its canaries.
#pragma once

#include "guarded_memory.h"
#include "require.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <string>

#include <fuzzer/FuzzedDataProvider.h>

namespace rvn::fuzz
{

class Placement
{
public:
    Placement(const tests::GuardedMemory& memory, std::size_t bytes, FuzzedDataProvider& input)
    {
        const bool atEnd = input.ConsumeBool();
        const std::ptrdiff_t shift = input.ConsumeBool() ? input.ConsumeIntegralInRange(0, 63) : 0;
        std::byte* const first = memory.first();
        std::byte* const end = first + memory.size();
        std::byte* const begin = memory.place(bytes, atEnd) + (atEnd ? -shift : shift);
        require(first <= begin && begin + bytes <= end, "the fuzzer has enough guarded memory");
        bytes_ = {begin, bytes};
        before_ = {begin - std::min(margin, begin - first), begin};
        behind_ = {begin + bytes,
                   begin + bytes + std::min(margin, end - begin - std::ssize(bytes_))};
        std::ranges::fill(before_, canary);
        std::ranges::fill(behind_, canary);
    }

    std::span<std::byte> bytes() const { return bytes_; }
    void fill(int value) const { std::memset(bytes_.data(), value, bytes_.size()); }

    void requireNothingWrittenAround(const std::string& who) const
    {
        const auto isCanary = [](std::byte value) { return value == canary; };
        require(std::ranges::all_of(before_, isCanary), who, " writes nothing before its memory");
        require(std::ranges::all_of(behind_, isCanary), who, " writes nothing behind its memory");
    }

private:
    static constexpr std::ptrdiff_t margin = 64;
    static constexpr std::byte canary{0x5a};

    std::span<std::byte> bytes_;
    std::span<std::byte> before_;
    std::span<std::byte> behind_;
};

} // namespace rvn::fuzz
