// The contenders of the Walsh-Hadamard transform: our kernel, with work memory of the caller and
// without, and its peers, each ready to transform the same two arrays.
#pragma once

#include "contender.h"
#include "options.h"

#include <array>
#include <cstddef>
#include <vector>

// The arrays begin a third of a page apart, so that those of low orders never have elements a
// multiple of 4096 bytes apart, where a load can be taken to depend on a store that it has nothing
// to do with. Higher orders have them whatever one does.
template <typename Element> struct alignas(4096) WhtBuffers {
    static constexpr std::size_t longest = std::size_t(1) << highestOrder;
    using Gap = std::array<std::byte, 1344>;

    std::array<Element, longest> source;
    Gap gapBeforeTarget;
    std::array<Element, longest> target;
    Gap gapBeforeWork;
    std::array<Element, 2 * longest> work;

    Element* destination(Placement placement)
    {
        return placement == Placement::InPlace ? source.data() : target.data();
    }
};

// The names in the order of whtContenders(); the peers begin at index firstWhtPeer.
Names whtContenderNames();
inline constexpr std::size_t firstWhtPeer = 2;

// The last one, for AVX2, is left out on a processor without it. The buffers outlive the
// contenders.
template <typename Element>
std::vector<Contender> whtContenders(WhtBuffers<Element>& buffers, int order, Placement placement);
