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
using enum OddBins::Form;

namespace
{

namespace complex
{

constexpr ComplexStage butterfly = {2, Method::Butterfly};

constexpr ComplexStage direct(int N)
{
    return {N, Method::Direct};
}

constexpr ComplexStage ct(int N, int a, int b)
{
    return {N, Method::CooleyTukey, a, b};
}

constexpr ComplexStage gt(int N, int a, int b)
{
    return {N, Method::GoodThomas, a, b};
}

constexpr ComplexStage rader(int prime)
{
    return {prime, Method::Rader};
}

// clang-format off
constexpr ComplexPlan plans[] = {
//  N, a x b   additions, multiplications
    {butterfly,        4,    0},
    {direct(3),       12,    4},
    {ct(4, 2, 2),     16,    0},
    {direct(5),       32,   16},
    {gt(6, 3, 2),     36,    8},
    {direct(7),       60,   36},
    {ct(8, 2, 4),     52,    4},
    {ct(9, 3, 3),     80,   40},
    {gt(10, 2, 5),    84,   32},
    {rader(11),      156,  100},
    {gt(12, 4, 3),    96,   16},
    {rader(13),      176,   72},
    {gt(14, 2, 7),   148,   72},
    {gt(15, 3, 5),   156,   68},
    {ct(16, 2, 8),   148,   28},
    {rader(17),      264,  108},
    {gt(18, 2, 9),   196,   80},
    {rader(19),      364,  220},
    {gt(20, 4, 5),   208,   64},
    {gt(21, 3, 7),   264,  136},
    {gt(22, 2, 11),  356,  200},
    {rader(23),      644,  484},
    {gt(24, 8, 3),   252,   44},
    {ct(25, 5, 5),   352,  224},
    {gt(26, 13, 2),  404,  144},
    {ct(27, 9, 3),   380,  220},
    {gt(28, 7, 4),   352,  144},
    {rader(29),      656,  396},
    {gt(30, 5, 6),   372,  136},
    {rader(31),      692,  384},
    {ct(32, 8, 4),   376,   88},
    {gt(33, 3, 11),  600,  344},
    {gt(34, 2, 17),  596,  216},
    {gt(35, 5, 7),   524,  292},
    {gt(36, 9, 4),   464,  160},
    {rader(37),      864,  444},
    {gt(38, 19, 2),  804,  440},
    {gt(39, 3, 13),  684,  268},
    {gt(40, 5, 8),   516,  148},
    {rader(41),      960,  452},
    {gt(42, 7, 6),   612,  272},
    {rader(43),     1148,  708},
    {gt(44, 11, 4),  800,  400},
    {gt(45, 9, 5),   688,  344},
    {gt(46, 23, 2), 1380,  968},
    {rader(47),     2612, 2116},
    {gt(48, 3, 16),  636,  148},
    {ct(49, 7, 7),   912,  648},
    {gt(50, 25, 2),  804,  448},
    {gt(51, 3, 17),  996,  392},
    {gt(52, 4, 13),  912,  288},
    {rader(53),     1760,  852},
    {gt(54, 27, 2),  868,  440},
    {gt(55, 11, 5), 1132,  676},
    {gt(56, 7, 8),   844,  316},
    {gt(57, 19, 3), 1320,  736},
    {gt(58, 29, 2), 1428,  792},
    {rader(59),     2796, 1908},
    {gt(60, 15, 4),  864,  272},
    {rader(61),     1616,  780},
    {gt(62, 31, 2), 1508,  768},
    {gt(63, 7, 9),  1100,  604},
    {ct(64, 8, 8),   928,  248},
};
// clang-format on

} // namespace complex

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

static_assert(std::ranges::all_of(complex::plans, [](const ComplexPlan& row) {
    const ComplexStage& stage = row.stage;
    return stage.length == lowestLength + (&row - complex::plans) &&
           isSplit(stage.length, stage.method, stage.a, stage.b);
}));
static_assert(std::size(complex::plans) == highestLength - lowestLength + 1);
static_assert(std::ranges::all_of(raders, [](const ComplexRader& row) {
    bool isLeast = isGenerator(row.generator, row.prime);
    for (int g = 2; g < row.generator; ++g)
        isLeast = isLeast && !isGenerator(g, row.prime);
    return isLeast && isSplitOf(row.prime - 1, row.first) && isSplitOf(row.prime - 1, row.second);
}));

} // namespace

std::span<const ComplexPlan> complexPlans()
{
    return complex::plans;
}

const ComplexPlan& complexPlan(int length)
{
    if (length < lowestLength || length > highestLength)
        throw std::runtime_error("no complex DFT plan for length " + std::to_string(length));
    return complex::plans[length - lowestLength];
}

const ComplexRader& complexRader(int prime)
{
    const auto row = std::ranges::find(raders, prime, &ComplexRader::prime);
    if (row == std::end(raders))
        throw std::runtime_error("no Rader plan for length " + std::to_string(prime));
    return *row;
}

} // namespace rvn::generator
