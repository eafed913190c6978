// The two arrays that all contenders of a length work on, as real numbers in the order of memory.
// A complex number is a pair of them, real part first, for us and for all peers.
#pragma once

#include "options.h"

#include <array>
#include <cstddef>

// One page holds both: no two of their elements lie a multiple of 4096 bytes apart, where a load
// can be taken to depend on a store that it has nothing to do with, and every contender meets the
// same addresses. The longest content is a complex signal.
template <typename Real> struct alignas(4096) Buffers {
    alignas(64) std::array<Real, std::size_t(2 * longestLength)> source;
    alignas(64) std::array<Real, std::size_t(2 * longestLength)> target;

    Real* destination(Placement placement)
    {
        return placement == Placement::InPlace ? source.data() : target.data();
    }
};

static_assert(sizeof(Buffers<double>) == 4096 && sizeof(Buffers<float>) == 4096);
