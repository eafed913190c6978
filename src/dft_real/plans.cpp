// The plan tables of the real transforms. They differ from the complex table and from each other:
// every length has the split with which its kernels group their additions.

#include "dft_real/plans.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::dft_real
{

using enum kernelgen::Method;
using enum OddBins;

namespace
{

// clang-format off
constexpr RealPlan forward[] = {
//    N  method       f x l  additions, multiplications
    {{ 2, Butterfly,   2,  1},    2,    0},
    {{ 3, Direct,      3,  1},    4,    2},
    {{ 4, CooleyTukey, 2,  2},    6,    0},
    {{ 5, Direct,      5,  1},   12,    8},
    {{ 6, GoodThomas,  3,  2},   14,    4},
    {{ 7, Direct,      7,  1},   24,   18},
    {{ 8, CooleyTukey, 4,  2},   20,    2},
    {{ 9, CooleyTukey, 3,  3},   32,   20},
    {{10, GoodThomas,  5,  2},   34,   16},
    {{11, Direct,     11,  1},   60,   50},
    {{12, GoodThomas,  4,  3},   38,    8},
    {{13, Rader,       0,  0},   78,   41},
    {{14, GoodThomas,  2,  7},   62,   36},
    {{15, GoodThomas,  3,  5},   64,   34},
    {{16, CooleyTukey, 4,  4},   58,   12},
    {{18, GoodThomas,  2,  9},   82,   40},
    {{22, GoodThomas,  2, 11},  142,  100},
    {{23, Rader,       0,  0},  300,  242},
    {{28, GoodThomas,  4,  7},  150,   72},
    {{29, Rader,       0,  0},  306,  210},
    {{30, GoodThomas,  5,  6},  158,   68},
    {{36, GoodThomas,  9,  4},  198,   80},
    {{40, GoodThomas,  8,  5},  220,   74},
    {{42, GoodThomas,  7,  6},  266,  136},
    {{46, GoodThomas,  2, 23},  646,  484},
    {{52, GoodThomas, 13,  4},  414,  164},
    {{58, GoodThomas,  2, 29},  670,  420},
    {{60, GoodThomas, 15,  4},  374,  136},
};

constexpr RealPlan inverse[] = {
//    N  method       f x l  additions, multiplications
    {{ 2, Butterfly,   2,  1},    2,    0},
    {{ 3, Direct,      3,  1},    4,    2},
    {{ 4, CooleyTukey, 2,  2},    6,    0},
    {{ 5, Direct,      5,  1},   12,    8},
    {{ 6, GoodThomas,  2,  3},   14,    4},
    {{ 7, Direct,      7,  1},   24,   18},
    {{ 8, CooleyTukey, 4,  2},   20,    2},
    {{ 9, CooleyTukey, 3,  3},   32,   18},
    {{10, GoodThomas,  2,  5},   34,   16},
    {{11, Rader,       0,  0},   68,   50},
    {{12, GoodThomas,  3,  4},   38,    8},
    {{13, Rader,       0,  0},   80,   44},
    {{14, GoodThomas,  2,  7},   62,   36},
    {{15, GoodThomas,  3,  5},   64,   34},
    {{16, CooleyTukey, 8,  2},   58,   12},
    {{18, GoodThomas,  2,  9},   82,   36},
    {{22, GoodThomas, 11,  2},  158,  100},
    {{23, Rader,       0,  0},  284,  242},
    {{28, GoodThomas,  4,  7},  150,   72},
    {{29, Rader,       0,  0},  306,  210},
    {{30, GoodThomas, 15,  2},  158,   68},
    {{36, GoodThomas,  4,  9},  198,   72},
    {{40, GoodThomas,  5,  8},  220,   74},
    {{42, GoodThomas,  6,  7},  266,  136},
    {{46, GoodThomas, 23,  2},  614,  484},
    {{52, GoodThomas, 13,  4},  414,  160},
    {{58, GoodThomas, 29,  2},  670,  420},
    {{60, GoodThomas, 12,  5},  374,  136},
};

constexpr kernelgen::Stage direct(int N)                { return {N, Direct, N, 1}; }
constexpr kernelgen::Stage gt(int N, int f, int l)      { return {N, GoodThomas, f, l}; }
constexpr kernelgen::Stage rader(int N)                 { return {N, Rader, 0, 0}; }

constexpr RealRaderPlan forwardRader[] = {
//   p  g  odd bins          first transform, length L     second, even and odd bins, length L/2
    {11, 2, Alternate,       {gt(10, 5,  2)},              {direct(5)}},
    {13, 2, PairedRotations, {gt(12, 3,  4)},              {gt( 6, 2, 3)}},
    {23, 5, Alternate,       {gt(22, 2, 11), rader(11)},   {direct(11)}},
    {29, 2, PairedRotations, {gt(28, 4,  7)},              {gt(14, 2, 7)}},
};

constexpr RealRaderPlan inverseRader[] = {
//   p  g  odd bins          first, length L/2             second transform, length L
    {11, 2, Alternate,       {direct(5)},                  {gt(10,  2,  5)}},
    {13, 2, HalfComplex,     {gt( 6, 2, 3)},               {gt(12,  3,  4)}},
    {23, 5, Alternate,       {direct(11)},                 {gt(22, 11,  2), direct(11)}},
    {29, 2, PairedRotations, {gt(14, 2, 7)},               {gt(28,  4,  7)}},
};
// clang-format on

} // namespace

std::span<const RealPlan> forwardPlans()
{
    return forward;
}

std::span<const RealPlan> inversePlans()
{
    return inverse;
}

std::span<const RealRaderPlan> forwardRaderPlans()
{
    return forwardRader;
}

std::span<const RealRaderPlan> inverseRaderPlans()
{
    return inverseRader;
}

const RealPlan& planOf(std::span<const RealPlan> table, int length)
{
    for (const RealPlan& plan : table)
        if (plan.stage.length == length)
            return plan;
    throw std::out_of_range("no real DFT plan for length " + std::to_string(length));
}

const RealRaderPlan& planOf(std::span<const RealRaderPlan> table, int prime)
{
    for (const RealRaderPlan& plan : table)
        if (plan.prime == prime)
            return plan;
    throw std::out_of_range("no real Rader plan for length " + std::to_string(prime));
}

} // namespace rvn::dft_real
