// The plan tables of the complex DFT.
//
// A split a x b is not sorted and follows from no rule: it fixes how additions are grouped, and so
// how results are rounded. The counts of a Good-Thomas row are b A(a) + a A(b) and b M(a) + a M(b).

#include "dft_complex/plans.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::dft_complex
{

using enum kernelgen::Method;

namespace
{

// clang-format off
constexpr ComplexPlan plans[] = {
//   N  method       a x b   additions, multiplications
    { 2, Butterfly,   2,  1,    4,    0},
    { 3, Direct,      3,  1,   12,    4},
    { 4, CooleyTukey, 2,  2,   16,    0},
    { 5, Direct,      5,  1,   32,   16},
    { 6, GoodThomas,  3,  2,   36,    8},
    { 7, Direct,      7,  1,   60,   36},
    { 8, CooleyTukey, 2,  4,   52,    4},
    { 9, CooleyTukey, 3,  3,   80,   40},
    {10, GoodThomas,  2,  5,   84,   32},
    {11, Rader,       0,  0,  156,  100},
    {12, GoodThomas,  4,  3,   96,   16},
    {13, Rader,       0,  0,  176,   72},
    {14, GoodThomas,  2,  7,  148,   72},
    {15, GoodThomas,  3,  5,  156,   68},
    {16, CooleyTukey, 2,  8,  148,   28},
    {17, Rader,       0,  0,  264,  108},
    {18, GoodThomas,  2,  9,  196,   80},
    {19, Rader,       0,  0,  364,  220},
    {20, GoodThomas,  4,  5,  208,   64},
    {21, GoodThomas,  3,  7,  264,  136},
    {22, GoodThomas,  2, 11,  356,  200},
    {23, Rader,       0,  0,  644,  484},
    {24, GoodThomas,  8,  3,  252,   44},
    {25, CooleyTukey, 5,  5,  352,  224},
    {26, GoodThomas, 13,  2,  404,  144},
    {27, CooleyTukey, 9,  3,  380,  220},
    {28, GoodThomas,  7,  4,  352,  144},
    {29, Rader,       0,  0,  656,  396},
    {30, GoodThomas,  5,  6,  372,  136},
    {31, Rader,       0,  0,  692,  384},
    {32, CooleyTukey, 8,  4,  376,   88},
    {33, GoodThomas,  3, 11,  600,  344},
    {34, GoodThomas,  2, 17,  596,  216},
    {35, GoodThomas,  5,  7,  524,  292},
    {36, GoodThomas,  9,  4,  464,  160},
    {37, Rader,       0,  0,  864,  444},
    {38, GoodThomas, 19,  2,  804,  440},
    {39, GoodThomas,  3, 13,  684,  268},
    {40, GoodThomas,  5,  8,  516,  148},
    {41, Rader,       0,  0,  960,  452},
    {42, GoodThomas,  7,  6,  612,  272},
    {43, Rader,       0,  0, 1148,  708},
    {44, GoodThomas, 11,  4,  800,  400},
    {45, GoodThomas,  9,  5,  688,  344},
    {46, GoodThomas, 23,  2, 1380,  968},
    {47, Rader,       0,  0, 2612, 2116},
    {48, GoodThomas,  3, 16,  636,  148},
    {49, CooleyTukey, 7,  7,  912,  648},
    {50, GoodThomas, 25,  2,  804,  448},
    {51, GoodThomas,  3, 17,  996,  392},
    {52, GoodThomas,  4, 13,  912,  288},
    {53, Rader,       0,  0, 1760,  852},
    {54, GoodThomas, 27,  2,  868,  440},
    {55, GoodThomas, 11,  5, 1132,  676},
    {56, GoodThomas,  7,  8,  844,  316},
    {57, GoodThomas, 19,  3, 1320,  736},
    {58, GoodThomas, 29,  2, 1428,  792},
    {59, Rader,       0,  0, 2796, 1908},
    {60, GoodThomas, 15,  4,  864,  272},
    {61, Rader,       0,  0, 1616,  780},
    {62, GoodThomas, 31,  2, 1508,  768},
    {63, GoodThomas,  7,  9, 1100,  604},
    {64, CooleyTukey, 8,  8,  928,  248},
};

constexpr kernelgen::Stage direct(int N)                { return {N, Direct, N, 1}; }
constexpr kernelgen::Stage ct(int N, int a, int b)      { return {N, CooleyTukey, a, b}; }
constexpr kernelgen::Stage ctUpper(int N, int a, int b) { return {N, CooleyTukey, a, b, true}; }
constexpr kernelgen::Stage gt(int N, int a, int b)      { return {N, GoodThomas, a, b}; }
constexpr kernelgen::Stage rader(int N)                 { return {N, Rader, 0, 0}; }

// The stages 2, 3, 4 x 2, ... that are not named run as the tables of the real transforms say.
constexpr RaderPlan raderPlans[] = {
//   p  g   first inner transform              second inner transform
    {11, 2, {gt(10,  5,  2)},                  {gt(10,  2,  5)}},
    {13, 2, {gt(12,  4,  3)},                  {gt(12,  3,  4)}},
    {17, 3, {ct(16,  2,  8), ct( 8, 2, 4)},    {ct(16,  8,  2), ct( 8, 2, 4)}},
    {19, 2, {gt(18,  2,  9)},                  {gt(18,  2,  9), ctUpper(9, 3, 3)}},
    {23, 5, {gt(22,  2, 11), rader(11)},       {gt(22, 11,  2), direct(11)}},
    {29, 2, {gt(28,  4,  7)},                  {gt(28,  4,  7)}},
    {31, 3, {gt(30,  5,  6), gt( 6, 3, 2)},    {gt(30, 15,  2), gt(15, 3, 5)}},
    {37, 2, {gt(36,  9,  4)},                  {gt(36,  4,  9), ctUpper(9, 3, 3)}},
    {41, 6, {gt(40,  8,  5), ct( 8, 2, 4)},    {gt(40,  5,  8), ct( 8, 2, 4)}},
    {43, 3, {gt(42,  7,  6), gt( 6, 3, 2)},    {gt(42,  6,  7), gt( 6, 2, 3)}},
    {47, 5, {gt(46,  2, 23)},                  {gt(46, 23,  2)}},
    {53, 2, {gt(52, 13,  4)},                  {gt(52, 13,  4)}},
    {59, 2, {gt(58,  2, 29)},                  {gt(58, 29,  2)}},
    {61, 2, {gt(60, 15,  4), gt(15, 3, 5)},    {gt(60, 12,  5), gt(12, 4, 3)}},
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

static_assert(std::ranges::all_of(plans, [](const ComplexPlan& row) {
    return row.length == lowestLength + (&row - plans) &&
           kernelgen::isSplit({row.length, row.method, row.first, row.last});
}));
static_assert(std::size(plans) == highestLength - lowestLength + 1);
static_assert(std::ranges::all_of(raderPlans, [](const RaderPlan& row) {
    bool leastGenerator = isGenerator(row.generator, row.prime);
    for (int g = 2; g < row.generator; ++g)
        leastGenerator = leastGenerator && !isGenerator(g, row.prime);
    return leastGenerator && row.first[0].length == row.prime - 1 &&
           row.second[0].length == row.prime - 1 &&
           std::ranges::all_of(row.first, kernelgen::isSplit) &&
           std::ranges::all_of(row.second, kernelgen::isSplit);
}));

} // namespace

std::span<const ComplexPlan> complexPlans()
{
    return plans;
}

const ComplexPlan& complexPlan(int length)
{
    if (length < lowestLength || length > highestLength)
        throw std::out_of_range("no complex DFT plan for length " + std::to_string(length));
    return plans[length - lowestLength];
}

const RaderPlan& raderPlan(int prime)
{
    const auto row = std::ranges::find(raderPlans, prime, &RaderPlan::prime);
    if (row == std::end(raderPlans))
        throw std::out_of_range("no Rader plan for length " + std::to_string(prime));
    return *row;
}

} // namespace rvn::dft_complex
