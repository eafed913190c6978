// Columns through the cache. From some length on, what a pass reads or writes lies multiples of
// 2 KiB apart, in few sets of the cache: neighbours in memory share lines, but a line is evicted
// before the neighbours' turn comes. So columns are gathered into a panel on the stack, and rows
// are staged there before they are stored. Values and the order of arithmetic stay the same.
//
// For true powers of two alone: at the sizes 2^k + 1 outputs collide, and their order counts.
#pragma once

#include "dct4/sub_transforms.h"

#include <array>
#include <cstring>

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

inline constexpr std::ptrdiff_t lineElements = 64 / sizeof(Element);
inline constexpr std::ptrdiff_t panelElements = 32768 / sizeof(Element);
inline constexpr std::ptrdiff_t longStride = 2048 / sizeof(Element);

// Of the top size N, which a plan knows as 2 N - 1.
constexpr bool isPowerOfTwo(std::int32_t lastOdd)
{
    return (std::int64_t{lastOdd} & (std::int64_t{lastOdd} + 1)) == 0;
}

template <std::ptrdiff_t count> void copy(Scalar* dst, const Scalar* src)
{
    std::memcpy(dst, src, count * sizeof(Element));
}

// Some sequences of an env3 at a time: gathered from the input, u[t] in row t of the panel and
// u[-1 - t] in row M/2 + t, each sequence a column; transformed in place, column by column; stored.
template <std::ptrdiff_t columns>
void computeInPanels(const Env3* env3, Scalar* dst, const Scalar* src)
{
    alignas(64) std::array<Element, panelElements> memory;
    Scalar* const panel = memory.data();
    const std::ptrdiff_t M = env3->subSize;
    const std::ptrdiff_t r = env3->count;
    for (std::ptrdiff_t first = 0; first < r; first += columns) {
        for (std::ptrdiff_t t = 0; t < M / 2; ++t) {
            const Scalar* const period = src + 2 * r * t;
            copy<columns>(panel + columns * t, period + first);
            for (std::ptrdiff_t j = 0; j < columns; ++j)
                panel[columns * (M / 2 + t) + j] = period[2 * r - 1 - first - j];
        }
        for (std::ptrdiff_t j = 0; j < columns; ++j)
            runInnerSplit(env3->env4List, panel + j, panel,
                          {.near = j, .far = columns * (M / 2) + j, .step = columns}, columns);
        for (std::ptrdiff_t row = 0; row < M; ++row)
            copy<columns>(dst + r * row + first, panel + columns * row);
    }
}

// As many columns as fit the panel, up to a line's worth. False, and nothing is done, where a panel
// does not serve: at shorter lengths, and where fewer than a quarter of a line would fit.
inline bool computedInPanels(const Env3* env3, Scalar* dst, const Scalar* src)
{
    const std::ptrdiff_t M = env3->subSize;
    if (!isPowerOfTwo(env3->lastOdd) || M < longStride)
        return false;
    if (M * lineElements <= panelElements)
        computeInPanels<lineElements>(env3, dst, src);
    else if (M * lineElements / 2 <= panelElements)
        computeInPanels<lineElements / 2>(env3, dst, src);
    else if (M * lineElements / 4 <= panelElements)
        computeInPanels<lineElements / 4>(env3, dst, src);
    else
        return false;
    return true;
}

using TopRowBody = void (*)(Scalar*, const Scalar*, const Scalar*, const TopRows&);

// Rows of the top split, a line's worth at a time: W[s] of all of them side by side, then each s as
// a line to its place.
template <TopRowBody body, std::ptrdiff_t r>
void storeInLines(Scalar* dst, const Scalar* src, const Scalar* twiddles, const TopRows& rows)
{
    alignas(64) std::array<Element, 2 * r * lineElements> memory;
    Scalar* const staged = memory.data();
    for (std::ptrdiff_t first = 0; first < rows.count; first += lineElements) {
        body(staged, src + 2 * r * first, twiddles + 2 * r * first,
             {.far = (r + 1) * lineElements - 1, .stride = lineElements, .count = lineElements});
        Scalar* const near = dst + first;
        Scalar* const far = dst + rows.far + 1 - lineElements - first;
        for (std::ptrdiff_t s = 0; s < r; ++s) {
            copy<lineElements>(near + rows.stride * s, staged + lineElements * s);
            copy<lineElements>(far + rows.stride * s, staged + lineElements * (r + s));
        }
    }
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
