// The plan tables of the complex DFT.
//
// A split a x b is not sorted and follows from no rule: it fixes how additions are grouped, and so
// how results are rounded. The counts of a Good-Thomas row are b A(a) + a A(b) and b M(a) + a M(b).

#include "generator/dft_complex/complex_plans.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::generator
{

using namespace notation;
using enum Method;
using enum OddBins::Form;

namespace
{

// clang-format off
constexpr ComplexPlan plans[] = {
//   N  method       a   b     additions, multiplications
    {{ 2, Butterfly},           4,    0},
    {{ 3, Direct},             12,    4},
    {{ 4, CooleyTukey, 2,  2},  16,    0},
    {{ 5, Direct},             32,   16},
    {{ 6, GoodThomas,  3,  2},  36,    8},
    {{ 7, Direct},             60,   36},
    {{ 8, CooleyTukey, 2,  4},  52,    4},
    {{ 9, CooleyTukey, 3,  3},  80,   40},
    {{10, GoodThomas,  2,  5},  84,   32},
    {{11, Rader},             156,  100},
    {{12, GoodThomas,  4,  3},  96,   16},
    {{13, Rader},             176,   72},
    {{14, GoodThomas,  2,  7}, 148,   72},
    {{15, GoodThomas,  3,  5}, 156,   68},
    {{16, CooleyTukey, 2,  8}, 148,   28},
    {{17, Rader},             264,  108},
    {{18, GoodThomas,  2,  9}, 196,   80},
    {{19, Rader},             364,  220},
    {{20, GoodThomas,  4,  5}, 208,   64},
    {{21, GoodThomas,  3,  7}, 264,  136},
    {{22, GoodThomas,  2, 11}, 356,  200},
    {{23, Rader},             644,  484},
    {{24, GoodThomas,  8,  3}, 252,   44},
    {{25, CooleyTukey, 5,  5}, 352,  224},
    {{26, GoodThomas, 13,  2}, 404,  144},
    {{27, CooleyTukey, 9,  3}, 380,  220},
    {{28, GoodThomas,  7,  4}, 352,  144},
    {{29, Rader},             656,  396},
    {{30, GoodThomas,  5,  6}, 372,  136},
    {{31, Rader},             692,  384},
    {{32, CooleyTukey, 8,  4}, 376,   88},
    {{33, GoodThomas,  3, 11}, 600,  344},
    {{34, GoodThomas,  2, 17}, 596,  216},
    {{35, GoodThomas,  5,  7}, 524,  292},
    {{36, GoodThomas,  9,  4}, 464,  160},
    {{37, Rader},             864,  444},
    {{38, GoodThomas, 19,  2}, 804,  440},
    {{39, GoodThomas,  3, 13}, 684,  268},
    {{40, GoodThomas,  5,  8}, 516,  148},
    {{41, Rader},             960,  452},
    {{42, GoodThomas,  7,  6}, 612,  272},
    {{43, Rader},            1148,  708},
    {{44, GoodThomas, 11,  4}, 800,  400},
    {{45, GoodThomas,  9,  5}, 688,  344},
    {{46, GoodThomas, 23,  2},1380,  968},
    {{47, Rader},            2612, 2116},
    {{48, GoodThomas,  3, 16}, 636,  148},
    {{49, CooleyTukey, 7,  7}, 912,  648},
    {{50, GoodThomas, 25,  2}, 804,  448},
    {{51, GoodThomas,  3, 17}, 996,  392},
    {{52, GoodThomas,  4, 13}, 912,  288},
    {{53, Rader},            1760,  852},
    {{54, GoodThomas, 27,  2}, 868,  440},
    {{55, GoodThomas, 11,  5},1132,  676},
    {{56, GoodThomas,  7,  8}, 844,  316},
    {{57, GoodThomas, 19,  3},1320,  736},
    {{58, GoodThomas, 29,  2},1428,  792},
    {{59, Rader},            2796, 1908},
    {{60, GoodThomas, 15,  4}, 864,  272},
    {{61, Rader},            1616,  780},
    {{62, GoodThomas, 31,  2},1508,  768},
    {{63, GoodThomas,  7,  9},1100,  604},
    {{64, CooleyTukey, 8,  8}, 928,  248},
};
// clang-format on

// Real transforms of the parts: forward before the diagonal, inverse behind it.
// clang-format off
constexpr ComplexRader raders[] = {
//   p  g  first inner transform          second inner transform
    {11, 2, residues(10,  5,  2),         gt(10,  2,  5)},
    {13, 2, residues(12,  4,  3),         gt(12,  3,  4)},
    {17, 3, ct(16,  2, ct8),              ct(16, inverseCt8,  2, HalfComplexMirrored)},
    {19, 2, residues(18,  2,  9),         gt(18,  2, upper9)},
    {23, 5, residues(22,  2, rader11),    gt(22, direct11,  2)},
    {29, 2, residues(28,  4,  7),         gt(28,  4,  7)},
    {31, 3, residues(30,  5, residues6),  gt(30, 15,  2)},
    {37, 2, residues(36,  9,  4),         gt(36,  4, upper9)},
    {41, 6, residues(40, ct8,  5),        gt(40,  5, inverseCt8)},
    {43, 3, residues(42,  7, residues6),  gt(42,  6,  7)},
    {47, 5, residues(46,  2, 23),         gt(46, 23,  2)},
    {53, 2, residues(52, 13,  4),         gt(52, 13,  4)},
    {59, 2, residues(58,  2, 29),         gt(58, 29,  2)},
    {61, 2, residues(60, residues15,  4), gt(60, gt12,  5)},
};
// clang-format on

constexpr bool isGenerator(int g, int prime)
{
    int power = g;
    int order = 1;
    for (; power != 1; ++order)
        power = power * g % prime;
    return order == prime - 1;
}

constexpr bool isSplitOf(int length, const RealStage& stage)
{
    return stage.length == length && isSplit(length, stage.method, stage.a.length, stage.b.length);
}

static_assert(std::ranges::all_of(plans, [](const ComplexPlan& row) {
    const ComplexStage& stage = row.stage;
    return stage.length == lowestLength + (&row - plans) &&
           isSplit(stage.length, stage.method, stage.a, stage.b);
}));
static_assert(std::size(plans) == highestLength - lowestLength + 1);
static_assert(std::ranges::all_of(raders, [](const ComplexRader& row) {
    bool isLeast = isGenerator(row.generator, row.prime);
    for (int g = 2; g < row.generator; ++g)
        isLeast = isLeast && !isGenerator(g, row.prime);
    return isLeast && isSplitOf(row.prime - 1, row.first) && isSplitOf(row.prime - 1, row.second);
}));

} // namespace

std::span<const ComplexPlan> complexPlans()
{
    return plans;
}

const ComplexPlan& complexPlan(int length)
{
    if (length < lowestLength || length > highestLength)
        throw std::runtime_error("no complex DFT plan for length " + std::to_string(length));
    return plans[length - lowestLength];
}

const ComplexRader& complexRader(int prime)
{
    const auto row = std::ranges::find(raders, prime, &ComplexRader::prime);
    if (row == std::end(raders))
        throw std::runtime_error("no Rader plan for length " + std::to_string(prime));
    return *row;
}

} // namespace rvn::generator
