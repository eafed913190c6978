// The plan tables of the real transforms. They differ from the complex table and from each other:
// every length has the split with which its kernels group their additions.

#include "dft_real/plans.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::dft_real
{

using namespace kernelgen;
using enum kernelgen::Method;
using enum OddBins::Kind;

namespace
{

// clang-format off
constexpr Stage direct(int N)                { return {N, Direct, N, 1}; }
constexpr Stage gt(int N, int f, int l)      { return {N, GoodThomas, f, l}; }
constexpr Stage rader(int N)                 { return {N, Rader, 0, 0}; }
constexpr Stage raderOther(int N)            { return {N, Rader, 0, 0, true}; }

constexpr ForwardPlan forward[] = {
//    N  method       f x l  additions, multiplications, negated outputs, scaled in binary64
    {{ 2, Butterfly,   2,  1},    2,    2,   0,  0},
    {{ 3, Direct,      3,  1},    5,    5,   1,  2},
    {{ 4, CooleyTukey, 2,  2},    7,    4,   1,  0},
    {{ 5, Direct,      5,  1},   13,   13,   1,  4},
    {{ 6, GoodThomas,  3,  2},   15,   10,   1,  0},
    {{ 7, Direct,      7,  1},   25,   25,   1,  6},
    {{ 8, CooleyTukey, 4,  2},   23,   10,   3,  0},
    {{ 9, CooleyTukey, 3,  3},   35,   29,   3,  2},
    {{10, GoodThomas,  5,  2},   37,   26,   3,  0},
    {{11, Direct,     11,  1},   61,   61,   1, 10},
    {{12, GoodThomas,  4,  3},   41,   20,   3,  4},
    {{13, Rader,       0,  0},   80,   54,   2,  0},
    {{14, GoodThomas,  2,  7},   65,   50,   3, 12},
    {{15, GoodThomas,  3,  5},   67,   49,   3,  4},
    {{16, CooleyTukey, 4,  4},   64,   28,   6,  0},
    {{17, Rader,       0,  0},  121,   71,   5,  4},
    {{18, GoodThomas,  2,  9},   86,   58,   4,  4},
    {{19, Rader,       0,  0},  168,  127,   4,  0},
    {{20, GoodThomas,  5,  4},   91,   52,   5,  0},
    {{21, GoodThomas,  7,  3},  118,   89,   6,  2},
    {{22, GoodThomas,  2, 11},  147,  122,   5, 20},
    {{23, Rader,       0,  0},  304,  265,   4,  0},
    {{24, GoodThomas,  3,  8},  109,   46,   5,  0},
    {{25, CooleyTukey, 5,  5},  158,  137,   6,  4},
    {{26, GoodThomas, 13,  2},  189,  108,   7,  0},
    {{27, CooleyTukey, 9,  3},  172,  137,   8,  2},
    {{28, GoodThomas,  4,  7},  157,  100,   7, 12},
    {{29, Rader,       0,  0},  314,  239,   8,  0},
    {{30, GoodThomas,  5,  6},  167,   98,   9,  0},
    {{31, Rader,       0,  0},  322,  223,   6,  0},
    {{32, CooleyTukey, 8,  4},  168,   76,  10,  0},
    {{33, GoodThomas, 11,  3},  252,  205,   8,  2},
    {{34, GoodThomas,  2, 17},  274,  142,   8,  8},
    {{35, GoodThomas,  7,  5},  236,  181,   8,  4},
    {{36, GoodThomas,  9,  4},  208,  116,  10,  0},
    {{37, Rader,       0,  0},  408,  265,   8,  0},
    {{38, GoodThomas, 19,  2},  378,  254,  12,  0},
    {{39, GoodThomas, 13,  3},  321,  188,  11,  2},
    {{40, GoodThomas,  8,  5},  231,  114,  11,  8},
    {{41, Rader,       0,  0},  453,  283,   9,  0},
    {{42, GoodThomas,  7,  6},  276,  178,  10,  0},
    {{43, Rader,       0,  0},  541,  395,   9,  0},
    {{44, GoodThomas, 11,  4},  337,  244,  11,  0},
    {{45, GoodThomas,  5,  9},  311,  217,  11,  2},
    {{46, GoodThomas,  2, 23},  657,  530,  11,  0},
    {{47, Rader,       0,  0}, 1269, 1105,   9,  0},
    {{48, GoodThomas, 16,  3},  280,  116,  14,  4},
    {{49, CooleyTukey, 7,  7},  419,  373,  11,  6},
    {{50, GoodThomas, 25,  2},  372,  274,  18,  0},
    {{51, GoodThomas, 17,  3},  464,  247,  16,  2},
    {{52, GoodThomas, 13,  4},  428,  216,  14,  0},
    {{53, Rader,       0,  0},  858,  509,  14,  0},
    {{54, GoodThomas,  2, 27},  395,  274,  13,  4},
    {{55, GoodThomas, 11,  5},  486,  393,  14,  4},
    {{56, GoodThomas,  7,  8},  382,  214,  14,  0},
    {{57, GoodThomas, 19,  3},  620,  419,  16,  2},
    {{58, GoodThomas,  2, 29},  684,  478,  14,  0},
    {{59, Rader,       0,  0}, 1350, 1013,  10,  0},
    {{60, GoodThomas, 15,  4},  392,  196,  18,  0},
    {{61, Rader,       0,  0},  776,  476,  14,  0},
    {{62, GoodThomas, 31,  2},  715,  446,  21,  0},
    {{63, GoodThomas,  7,  9},  506,  365,  18,  2},
    {{64, CooleyTukey,16,  4},  417,  196,  19,  0},
};

constexpr InversePlan inverse[] = {
//    N  method       f x l  additions, multiplications, doublings, inner stage
    {{ 2, Butterfly,   2,  1},    2,    2,   0},
    {{ 3, Direct,      3,  1},    4,    6,   1},
    {{ 4, CooleyTukey, 2,  2},    6,    6,   2},
    {{ 5, Direct,      5,  1},   12,   17,   4},
    {{ 6, GoodThomas,  2,  3},   14,   14,   4},
    {{ 7, Direct,      7,  1},   24,   31,   6},
    {{ 8, CooleyTukey, 4,  2},   20,   16,   6},
    {{ 9, CooleyTukey, 3,  3},   32,   34,   7},
    {{10, GoodThomas,  2,  5},   34,   34,   8},
    {{11, Rader,       0,  0},   68,   71,  10},
    {{12, GoodThomas,  3,  4},   38,   28,   8},
    {{13, Rader,       0,  0},   80,   69,  12},
    {{14, GoodThomas,  2,  7},   62,   62,  12},
    {{15, GoodThomas,  3,  5},   64,   62,  13},
    {{16, CooleyTukey, 8,  2},   58,   42,  14},
    {{17, Rader,       0,  0},  116,   85,  14},
    {{18, GoodThomas,  2,  9},   82,   70,  16},
    {{19, Rader,       0,  0},  164,  147,  18},
    {{20, GoodThomas,  5,  4},   86,   70,  18},
    {{21, GoodThomas,  3,  7},  112,  108,  19},
    {{22, GoodThomas, 11,  2},  158,  142,  20},
    {{23, Rader,       0,  0},  284,  287,  22},
    {{24, GoodThomas,  8,  3},  104,   68,  22},
    {{25, CooleyTukey, 5,  5},  152,  161,  24},
    {{26, GoodThomas,  2, 13},  186,  138,  24},
    {{27, CooleyTukey, 9,  3},  164,  152,  25},
    {{28, GoodThomas,  4,  7},  150,  126,  26},
    {{29, Rader,       0,  0},  306,  267,  28},
    {{30, GoodThomas, 15,  2},  158,  124,  26},
    {{31, Rader,       0,  0},  316,  255,  30},
    {{32, CooleyTukey,16,  2},  156,  104,  30},
    {{33, GoodThomas,  3, 11},  268,  236,  31},
    {{34, GoodThomas, 17,  2},  266,  170,  28},
    {{35, GoodThomas,  5,  7},  228,  215,  34},
    {{36, GoodThomas,  4,  9},  198,  142,  34},
    {{37, Rader,       0,  0},  402,  309,  36},
    {{38, GoodThomas,  2, 19},  366,  294,  36},
    {{39, GoodThomas, 13,  3},  308,  219,  38},
    {{40, GoodThomas,  5,  8},  220,  152,  38},
    {{41, Rader,       0,  0},  444,  323,  40},
    {{42, GoodThomas,  6,  7},  266,  218,  40},
    {{43, Rader,       0,  0},  532,  437,  42},
    {{44, GoodThomas,  4, 11},  358,  286,  42},
    {{45, GoodThomas,  5,  9},  300,  251,  44},
    {{46, GoodThomas, 23,  2},  614,  574,  44},
    {{47, Rader,       0,  0}, 1260, 1151,  46},
    {{48, GoodThomas, 16,  3},  270,  166,  46},
    {{49, CooleyTukey, 7,  7},  408,  421,  48},
    {{50, GoodThomas, 25,  2},  354,  322,  48},
    {{51, GoodThomas,  3, 17},  448,  296,  49},
    {{52, GoodThomas, 13,  4},  414,  262,  50},
    {{53, Rader,       0,  0},  840,  555,  52},
    {{54, GoodThomas, 27,  2},  382,  304,  50},
    {{55, GoodThomas,  5, 11},  512,  447,  54},
    {{56, GoodThomas,  8,  7},  368,  268,  54},
    {{57, GoodThomas,  3, 19},  604,  480,  55},
    {{58, GoodThomas, 29,  2},  670,  534,  56},
    {{59, Rader,       0,  0}, 1340, 1071,  58},
    {{60, GoodThomas, 12,  5},  374,  254,  58, gt(12, 4, 3)},
    {{61, Rader,       0,  0},  762,  539,  60},
    {{62, GoodThomas, 31,  2},  694,  510,  60},
    {{63, GoodThomas,  9,  7},  488,  424,  61},
    {{64, CooleyTukey,32,  2},  400,  260,  62},
};

// Forward: the first transform has length L = p - 1, the second two of L/2, even and odd bins.
constexpr RealRaderPlan forwardRader[] = {
//   p  g  odd bins            first transform            second transform
    {11, 2, {Alternate},        {gt(10,  5,  2)},            {direct(5)}},
    {13, 2, {Interleaved, 2},   {gt(12,  3,  4)},            {gt( 6,  2, 3)}},
    {17, 3, {HalfComplex},      {},                          {}},
    {19, 2, {Alternate},        {gt(18,  2,  9)},            {}},
    {23, 5, {Alternate},        {gt(22,  2, 11), rader(11)}, {direct(11)}},
    {29, 2, {Interleaved, 2},   {gt(28,  4,  7)},            {gt(14,  2, 7)}},
    {31, 3, {Alternate},        {gt(30,  5,  6)},            {gt(15,  3, 5)}},
    {37, 2, {Interleaved, 6},   {gt(36,  9,  4)},            {gt(18,  2, 9)}},
    {41, 6, {Interleaved, 4},   {gt(40,  8,  5)},            {gt(20,  5, 4)}},
    {43, 3, {Alternate},        {gt(42,  7,  6)},            {gt(21,  3, 7)}},
    {47, 5, {Alternate},        {gt(46,  2, 23)},            {rader(23)}},
    {53, 2, {Interleaved, 2},   {gt(52, 13,  4)},            {gt(26,  2, 13)}, raderOther(13)},
    {59, 2, {Alternate},        {gt(58,  2, 29)},            {rader(29)}},
    {61, 2, {Interleaved, 2},   {gt(60, 15,  4)},            {gt(30, 15, 2)}},
};

// Inverse: the first transform is two of length L/2, even and odd bins, the second has length L.
constexpr RealRaderPlan inverseRader[] = {
//   p  g  odd bins            first transform            second transform
    {11, 2, {Alternate},        {direct(5)},                 {gt(10,  2,  5)}},
    {13, 2, {HalfComplex},      {gt( 6, 2,  3)},             {gt(12,  3,  4)}},
    {17, 3, {HalfComplex},      {},                          {}},
    {19, 2, {Alternate},        {},                          {gt(18,  2,  9)}},
    {23, 5, {Alternate},        {direct(11)},                {gt(22, 11,  2), direct(11)}},
    {29, 2, {Interleaved, 2},   {gt(14, 2,  7)},             {gt(28,  4,  7)}},
    {31, 3, {Alternate},        {gt(15, 3,  5)},             {gt(30, 15,  2), gt(15, 5, 3)}},
    {37, 2, {Interleaved, 6},   {gt(18, 2,  9)},             {gt(36,  9,  4)}},
    {41, 6, {Interleaved, 4},   {gt(20, 5,  4)},             {gt(40,  5,  8)}},
    {43, 3, {Alternate},        {gt(21, 7,  3)},             {gt(42,  6,  7), gt( 6, 3, 2)}},
    {47, 5, {Alternate},        {rader(23)},                 {gt(46, 23,  2)}},
    {53, 2, {Interleaved, 2},   {gt(26, 13, 2)},             {gt(52, 13,  4)}},
    {59, 2, {Alternate},        {rader(29)},                 {gt(58, 29,  2)}},
    {61, 2, {Interleaved, 2},   {gt(30, 5,  6)},             {gt(60, 12,  5), gt(12, 4, 3)}},
};

// The inverse of 13 as the odd bins of forward 53 take it.
constexpr RealRaderPlan otherInverseRader[] = {
    {13, 2, {Interleaved, 2, true}, {gt( 6, 2,  3)},         {gt(12,  3,  4)}},
};
// clang-format on

constexpr auto isRow = [](const auto& row) { return isSplit(row.stage); };
static_assert(std::ranges::all_of(forward, isRow) && std::ranges::all_of(inverse, isRow));
static_assert(std::size(forward) == 63 && std::size(inverse) == 63);

const RealRaderPlan& rowOf(std::span<const RealRaderPlan> table, int prime)
{
    for (const RealRaderPlan& plan : table)
        if (plan.prime == prime)
            return plan;
    throw std::out_of_range("no real Rader plan for length " + std::to_string(prime));
}

} // namespace

std::span<const ForwardPlan> forwardPlans()
{
    return forward;
}

std::span<const InversePlan> inversePlans()
{
    return inverse;
}

const RealRaderPlan& forwardRaderPlan(int prime)
{
    return rowOf(forwardRader, prime);
}

const RealRaderPlan& inverseRaderPlan(int prime, bool otherForm)
{
    return otherForm ? rowOf(otherInverseRader, prime) : rowOf(inverseRader, prime);
}

} // namespace rvn::dft_real
