// Up to 32 the transform is one body. From 64 on a size N = r M takes
//
//     r transforms of M real numbers at odd frequencies, and M/2 rows of 2 r outputs each;
//
// one of M > 64 numbers at odd frequencies, M = r M', takes r of M' and M'/2 combining rows.

#include "dct4_limit.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace rvn::bench
{

namespace
{

struct Entry {
    int size;
    Operations operations;
};

constexpr int largestBody = 32;
constexpr int largestOddBody = 64;

constexpr std::array<Entry, 5> bodies = {
    {{2, {4, 2}}, {4, {8, 12}}, {8, {24, 32}}, {16, {64, 88}}, {32, {144, 216}}}};
constexpr std::array<Entry, 4> oddBodies = {
    {{8, {12, 24}}, {16, {32, 68}}, {32, {96, 184}}, {64, {224, 448}}}};
constexpr std::array<Entry, 3> outputRows = {{{8, {72, 88}}, {16, {176, 224}}, {32, {352, 512}}}};
constexpr std::array<Entry, 3> oddRows = {{{8, {32, 66}}, {16, {96, 176}}, {32, {224, 440}}}};

template <typename Table> Operations find(const Table& table, int size)
{
    const auto* const entry = std::ranges::find(table, size, &Entry::size);
    if (entry == table.end())
        throw std::logic_error("the DCT-IV has no such part");
    return entry->operations;
}

int radixOf(int length)
{
    if (length >= 1024)
        return 32;
    return length >= 256 ? 16 : 8;
}

Operations sum(int times, Operations part, int rows, Operations row)
{
    return {.multiplications = times * part.multiplications + rows * row.multiplications,
            .additions = times * part.additions + rows * row.additions};
}

Operations oddOperations(int length)
{
    if (length <= largestOddBody)
        return find(oddBodies, length);
    const int radix = radixOf(length);
    const int part = length / radix;
    return sum(radix, oddOperations(part), part / 2, find(oddRows, radix));
}

} // namespace

Operations dct4Operations(int size)
{
    if (size <= largestBody)
        return find(bodies, size);
    const int radix = radixOf(size);
    const int part = size / radix;
    return sum(radix, oddOperations(part), part / 2, find(outputRows, radix));
}

double dct4LimitInCycles(int size)
{
    const auto [multiplications, additions] = dct4Operations(size);
    return std::max(additions / 2, (additions + multiplications) / 3);
}

} // namespace rvn::bench
