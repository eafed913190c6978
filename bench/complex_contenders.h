// The contenders of the complex DFT: our kernel and its peers, each ready to transform the same two
// arrays. The first one is ours.
#pragma once

#include "contender.h"
#include "options.h"
#include "rvngenmx.h"

#include <array>
#include <vector>

namespace rvn::bench
{

// The two arrays that all contenders of a length work on. One page holds both: no two of their
// elements lie a multiple of 4096 bytes apart, where a load can be taken to depend on a store that
// it has nothing to do with, and every contender meets the same addresses.
template <typename Element> struct alignas(4096) ComplexBuffers {
    alignas(64) std::array<Element, longestLength> source;
    alignas(64) std::array<Element, longestLength> target;

    Element* destination(Placement placement)
    {
        return placement == Placement::InPlace ? source.data() : target.data();
    }
};

static_assert(sizeof(ComplexBuffers<Rvn64fc>) == 4096 && sizeof(ComplexBuffers<Rvn32fc>) == 4096);

// The names in the order of complexContenders().
template <typename Element> Names complexContenderNames();

// Planning writes into the buffers. They outlive the contenders.
template <typename Element>
std::vector<Contender> complexContenders(ComplexBuffers<Element>& buffers, int length,
                                         Direction direction, Placement placement);

} // namespace rvn::bench
