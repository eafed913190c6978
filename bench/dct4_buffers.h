// What all contenders of one size of the DCT-IV work on, and the memory of our plan.
#pragma once

#include "options.h"

#include <cstddef>
#include <memory>
#include <new>
#include <span>

// The arrays begin a third of a page apart, so that those of small sizes never have elements a
// multiple of 4096 bytes apart, where a load can be taken to depend on a store that it has nothing
// to do with. Larger sizes have them whatever one does.
template <typename Real> class Dct4Buffers
{
public:
    Dct4Buffers(int size, std::size_t planBytes)
    {
        const std::size_t bytes = static_cast<std::size_t>(size) * sizeof(Real);
        const std::size_t toTarget = wholePages(bytes) + gap;
        const std::size_t toBlock = toTarget + wholePages(bytes) + gap;
        memory.reset(static_cast<std::byte*>(::operator new(toBlock + planBytes, pageAligned)));
        source = {reinterpret_cast<Real*>(memory.get()), static_cast<std::size_t>(size)};
        target = {reinterpret_cast<Real*>(memory.get() + toTarget), source.size()};
        block = memory.get() + toBlock;
    }

    std::span<Real> destination(Placement placement) const
    {
        return placement == Placement::InPlace ? source : target;
    }

    std::span<Real> source;
    std::span<Real> target;
    std::byte* block = nullptr;

private:
    static constexpr std::size_t page = 4096;
    static constexpr std::size_t gap = 1344;
    static constexpr std::align_val_t pageAligned = std::align_val_t(page);

    struct Release {
        void operator()(std::byte* memory) const { ::operator delete(memory, pageAligned); }
    };

    static std::size_t wholePages(std::size_t bytes) { return (bytes + page - 1) / page * page; }

    std::unique_ptr<std::byte, Release> memory;
};
