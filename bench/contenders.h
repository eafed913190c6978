// The contenders: our kernel and its peers, each ready to transform the same two arrays.
//
// The first contender is always ours. A contender is one transform of one length, precision,
// direction and placement, with everything prepared that its interface lets a caller prepare once:
// the kernel's address, a plan, a table.
#pragma once

#include "options.h"
#include "rvngenmx.h"

#include <benchmark/benchmark.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace rvn::bench
{

// The two arrays that all contenders of a length work on. One page holds both: no two of their
// elements lie a multiple of 4096 bytes apart, where a load can be taken to depend on a store that
// it has nothing to do with, and every contender meets the same addresses.
template <typename Element> struct alignas(4096) Buffers {
    alignas(64) std::array<Element, longestLength> source;
    alignas(64) std::array<Element, longestLength> target;

    Element* destination(Placement placement)
    {
        return placement == Placement::InPlace ? source.data() : target.data();
    }
};

static_assert(sizeof(Buffers<Rvn64fc>) == 4096 && sizeof(Buffers<Rvn32fc>) == 4096);

struct Contender {
    std::string name;
    std::function<void()> transform;               // once, through no more than a pointer
    std::function<void(benchmark::State&)> repeat; // the timed loop, with the call built into it
};

// The names in the order of contenders().
template <typename Element> std::vector<std::string> contenderNames();

// Planning writes into the buffers. They outlive the contenders.
template <typename Element>
std::vector<Contender> contenders(Buffers<Element>& buffers, int length, Direction direction,
                                  Placement placement);

} // namespace rvn::bench
