// Columns through the cache. From some length on, what a pass reads or writes lies multiples of
// 2 KiB apart, in few sets of the cache: neighbours in memory share lines, but a line is evicted
// before the neighbours' turn comes. So columns are gathered into a panel on the stack, and rows
// are staged there before they are stored. Values and the order of arithmetic stay the same.
//
// For plans of powers of two, as they were built. At the sizes 2^k + 1 outputs collide, and their
// order counts; a plan with other numbers in it says itself which elements are read and written.
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

template <std::ptrdiff_t count> void copy(Scalar* dst, const Scalar* src)
{
    std::memcpy(dst, src, count * sizeof(Element));
}

// An env3 over one inner split into fixed bodies, M points as r' by L: all that a panel needs.
struct PanelSplit {
    const Env3& env3;
    const Env6& env6;
    const Env7& env7;
    Element* scratch;

    std::ptrdiff_t length() const { return std::ptrdiff_t{env6.lastOdd} + 1; } // M

    // Whether the numbers are those of a plan for r M points.
    bool isAsBuilt() const
    {
        const std::ptrdiff_t M = length();
        const std::ptrdiff_t r = env3.count;
        return r % lineElements == 0 && env3.stride == 2 * r && 2 * r * M - 1 == env3.lastOdd &&
               bodiesOf(env7.mode).odd != nullptr &&
               (std::ptrdiff_t{env7.count} << env7.mode) == M && env7.parentStride == 2 * r &&
               env7.stride == 2 * r * env7.count && bodiesOf(env6.mode).innerRow != nullptr &&
               env6.rowStep == (2 << env6.mode) && env6.subSize == 2 * env6.rows &&
               std::ptrdiff_t{env6.rowStep} * env6.rows == M && env6.parentRadix == r;
    }
};

// Some sequences of an env3 at a time: gathered from the input, u[t] in row t of the panel and
// u[-1 - t] in row M/2 + t, each sequence a column; transformed in place, column by column; stored.
template <std::ptrdiff_t columns>
void computeInPanels(const PanelSplit& split, Scalar* dst, const Scalar* src)
{
    alignas(64) std::array<Element, panelElements> memory;
    Scalar* const panel = memory.data();
    const auto& [env3, env6, env7, scratch] = split;
    const std::ptrdiff_t M = split.length();
    const std::ptrdiff_t r = env3.count;
    for (std::ptrdiff_t first = 0; first < r; first += columns) {
        for (std::ptrdiff_t t = 0; t < M / 2; ++t) {
            const Scalar* const period = src + 2 * r * t;
            copy<columns>(panel + columns * t, period + first);
            for (std::ptrdiff_t j = 0; j < columns; ++j)
                panel[columns * (M / 2 + t) + j] = period[2 * r - 1 - first - j];
        }
        for (std::ptrdiff_t j = 0; j < columns; ++j) {
            // u[v + r' w] for w >= 0 begins at row v, for w < 0 at row M/2 + r' - 1 - v.
            bodiesOf(env7.mode).odd(scratch, panel,
                                    {.near = j,
                                     .far = columns * (M / 2 + env7.count - 1) + j,
                                     .step = columns,
                                     .stride = columns * env7.count,
                                     .rowStep = env7.parentRadix,
                                     .count = env7.count});
            OWNG_DCT4(env6, rows)(&env6, panel + j, scratch, columns);
        }
        for (std::ptrdiff_t row = 0; row < M; ++row)
            copy<columns>(dst + r * row + first, panel + columns * row);
    }
}

// As many columns as fit the panel, up to a line's worth. False, and nothing is done, where a panel
// does not serve: at shorter lengths, and where fewer than a quarter of a line would fit.
inline bool computedInPanels(const Env3& env3, Scalar* dst, const Scalar* src)
{
    if (env3.mode != innerSplitMode)
        return false;
    const Env4* const env4 = itemOf<Env4>(env3.env4List);
    if (env4->mode != 1)
        return false;
    const PanelSplit split{.env3 = env3,
                           .env6 = *itemOf<Env6>(env4->env6List),
                           .env7 = *itemOf<Env7>(env4->env7List),
                           .scratch = env4->scratch};
    const std::ptrdiff_t M = split.length();
    if (M < longStride || !split.isAsBuilt())
        return false;
    if (M * lineElements <= panelElements)
        computeInPanels<lineElements>(split, dst, src);
    else if (M * lineElements / 2 <= panelElements)
        computeInPanels<lineElements / 2>(split, dst, src);
    else if (M * lineElements / 4 <= panelElements)
        computeInPanels<lineElements / 4>(split, dst, src);
    else
        return false;
    return true;
}

// Whether lines serve the rows of a top split: with radix 32, at long strides, with the numbers of
// a plan for 32 M points.
inline bool isStoredInLines(const Env2& env2)
{
    const std::ptrdiff_t M = env2.subSize;
    return env2.mode == 6 && M >= longStride && env2.rowStep == 64 && env2.lastOdd == 64 * M - 1 &&
           2 * std::ptrdiff_t{env2.rows} == M && env2.rows % lineElements == 0;
}

// The rows a line's worth at a time: W[s] of all of them side by side, then each s as a line to its
// place.
inline void storeInLines(const Env2& env2, Scalar* dst, const Scalar* src)
{
    constexpr std::ptrdiff_t r = 32;
    const std::ptrdiff_t M = env2.subSize;
    alignas(64) std::array<Element, 2 * r * lineElements> memory;
    Scalar* const staged = memory.data();
    for (std::ptrdiff_t first = 0; first < env2.rows; first += lineElements) {
        OWNG_DCT4(topRow, 32)
        (staged, src + 2 * r * first, env2.twiddles + 2 * r * first,
         {.far = (r + 1) * lineElements - 1, .stride = lineElements, .count = lineElements});
        Scalar* const near = dst + first;
        Scalar* const far = dst + M - lineElements - first;
        for (std::ptrdiff_t s = 0; s < r; ++s) {
            copy<lineElements>(near + M * s, staged + lineElements * s);
            copy<lineElements>(far + M * s, staged + lineElements * (r + s));
        }
    }
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
