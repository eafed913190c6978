// The plan tables of the real transforms. They differ from the complex table and from each other:
// every length has the split with which its kernels group their additions.

#include "generator/dft_real/real_plans.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace rvn::generator
{

using namespace notation;
using enum OddBins::Form;

namespace
{

constexpr RealStage butterfly = {.length = 2, .method = Method::Butterfly};

// The middle class of the inverse of 64, of 32 points, runs as two sequences of 16.
constexpr RealStage ct64 = ct(64, 32, 2, Interleaved, 2);

// clang-format off
constexpr ForwardPlan forward[] = {
//  N, a x b, column a/2           additions, multiplications, negated outputs, scaled in binary64
    {butterfly,                     2,    2,  0,  0},
    {direct(3, 1),                  5,    5,  1,  2},
    {ct(4, 2, 2, Quarters),         7,    4,  1,  0},
    {direct(5, 2),                 13,   13,  1,  4},
    {gt(6, 3, 2),                  15,   10,  1,  0},
    {direct(7, 2),                 25,   25,  1,  6},
    {ct(8, 4, 2, Quarters),        23,   10,  3,  0},
    {ct(9, 3, 3),                  35,   29,  3,  2},
    {gt(10, 5, 2),                 37,   26,  3,  0},
    {direct(11, 4),                61,   61,  1, 10},
    {gt(12, 4, 3),                 41,   20,  3,  4},
    {rader(13),                    80,   54,  2,  0},
    {gt(14, 2, 7),                 65,   50,  3, 12},
    {gt(15, 3, 5),                 67,   49,  3,  4},
    {ct(16, 4, 4, Eighths),        64,   28,  6,  0},
    {rader(17),                   121,   71,  5,  4},
    {gt(18, 2, 9),                 86,   58,  4,  4},
    {rader(19),                   168,  127,  4,  0},
    {gt(20, 5, 4),                 91,   52,  5,  0},
    {gt(21, 7, 3),                118,   89,  6,  2},
    {gt(22, 2, 11),               147,  122,  5, 20},
    {rader(23),                   304,  265,  4,  0},
    {gt(24, 3, 8),                109,   46,  5,  0},
    {ct(25, 5, 5),                158,  137,  6,  4},
    {gt(26, 13, 2),               189,  108,  7,  0},
    {ct(27, 9, 3),                172,  137,  8,  2},
    {gt(28, 4, 7),                157,  100,  7, 12},
    {rader(29),                   314,  239,  8,  0},
    {gt(30, 5, 6),                167,   98,  9,  0},
    {rader(31),                   322,  223,  6,  0},
    {ct(32, 8, 4, Eighths),       168,   76, 10,  0},
    {gt(33, 11, 3),               252,  205,  8,  2},
    {gt(34, 2, 17),               274,  142,  8,  8},
    {gt(35, 7, 5),                236,  181,  8,  4},
    {gt(36, 9, 4),                208,  116, 10,  0},
    {rader(37),                   408,  265,  8,  0},
    {gt(38, 19, 2),               378,  254, 12,  0},
    {gt(39, 13, 3),               321,  188, 11,  2},
    {gt(40, 8, 5),                231,  114, 11,  8},
    {rader(41),                   453,  283,  9,  0},
    {gt(42, 7, 6),                276,  178, 10,  0},
    {rader(43),                   541,  395,  9,  0},
    {gt(44, 11, 4),               337,  244, 11,  0},
    {gt(45, 5, 9),                311,  217, 11,  2},
    {gt(46, 2, 23),               657,  530, 11,  0},
    {rader(47),                  1269, 1105,  9,  0},
    {gt(48, 16, 3),               280,  116, 14,  4},
    {ct(49, 7, 7),                419,  373, 11,  6},
    {gt(50, 25, 2),               372,  274, 18,  0},
    {gt(51, 17, 3),               464,  247, 16,  2},
    {gt(52, 13, 4),               428,  216, 14,  0},
    {rader(53),                   858,  509, 14,  0},
    {gt(54, 2, 27),               395,  274, 13,  4},
    {gt(55, 11, 5),               486,  393, 14,  4},
    {gt(56, 7, 8),                382,  214, 14,  0},
    {gt(57, 19, 3),               620,  419, 16,  2},
    {gt(58, 2, 29),               684,  478, 14,  0},
    {rader(59),                  1350, 1013, 10,  0},
    {gt(60, 15, 4),               392,  196, 18,  0},
    {rader(61),                   776,  476, 14,  0},
    {gt(62, 31, 2),               715,  446, 21,  0},
    {gt(63, 7, 9),                506,  365, 18,  2},
    {ct(64, 16, 4, Eighths),      417,  196, 19,  0},
};

constexpr InversePlan inverse[] = {
//  N, a x b, class b/2                       additions, multiplications, doublings
    {butterfly,                               2,    2,  0},
    {direct(3),                               4,    6,  1},
    {ct(4, 2, 2, HalfComplexMirrored),        6,    6,  2},
    {direct(5),                              12,   17,  4},
    {gt(6, 2, 3),                            14,   14,  4},
    {direct(7),                              24,   31,  6},
    {ct(8, 4, 2, HalfComplexMirrored),       20,   16,  6},
    {ct(9, 3, 3),                            32,   34,  7},
    {gt(10, 2, 5),                           34,   34,  8},
    {rader(11),                              68,   71, 10},
    {gt(12, 3, 4),                           38,   28,  8},
    {rader(13),                              80,   69, 12},
    {gt(14, 2, 7),                           62,   62, 12},
    {gt(15, 3, 5),                           64,   62, 13},
    {ct(16, 8, 2, HalfComplexMirrored),      58,   42, 14},
    {rader(17),                             116,   85, 14},
    {gt(18, 2, 9),                           82,   70, 16},
    {rader(19),                             164,  147, 18},
    {gt(20, 5, 4),                           86,   70, 18},
    {gt(21, 3, 7),                          112,  108, 19},
    {gt(22, 11, 2),                         158,  142, 20},
    {rader(23),                             284,  287, 22},
    {gt(24, 8, 3),                          104,   68, 22},
    {ct(25, 5, 5),                          152,  161, 24},
    {gt(26, 2, 13),                         186,  138, 24},
    {ct(27, 9, 3),                          164,  152, 25},
    {gt(28, 4, 7),                          150,  126, 26},
    {rader(29),                             306,  267, 28},
    {gt(30, 15, 2),                         158,  124, 26},
    {rader(31),                             316,  255, 30},
    {ct(32, 16, 2, HalfComplexMirrored),    156,  104, 30},
    {gt(33, 3, 11),                         268,  236, 31},
    {gt(34, 17, 2),                         266,  170, 28},
    {gt(35, 5, 7),                          228,  215, 34},
    {gt(36, 4, 9),                          198,  142, 34},
    {rader(37),                             402,  309, 36},
    {gt(38, 2, 19),                         366,  294, 36},
    {gt(39, 13, 3),                         308,  219, 38},
    {gt(40, 5, 8),                          220,  152, 38},
    {rader(41),                             444,  323, 40},
    {gt(42, 6, 7),                          266,  218, 40},
    {rader(43),                             532,  437, 42},
    {gt(44, 4, 11),                         358,  286, 42},
    {gt(45, 5, 9),                          300,  251, 44},
    {gt(46, 23, 2),                         614,  574, 44},
    {rader(47),                            1260, 1151, 46},
    {gt(48, 16, 3),                         270,  166, 46},
    {ct(49, 7, 7),                          408,  421, 48},
    {gt(50, 25, 2),                         354,  322, 48},
    {gt(51, 3, 17),                         448,  296, 49},
    {gt(52, 13, 4),                         414,  262, 50},
    {rader(53),                             840,  555, 52},
    {gt(54, 27, 2),                         382,  304, 50},
    {gt(55, 5, 11),                         512,  447, 54},
    {gt(56, 8, 7),                          368,  268, 54},
    {gt(57, 3, 19),                         604,  480, 55},
    {gt(58, 29, 2),                         670,  534, 56},
    {rader(59),                            1340, 1071, 58},
    {gt(60, gt12, 5),                       374,  254, 58},
    {rader(61),                             762,  539, 60},
    {gt(62, 31, 2),                         694,  510, 60},
    {gt(63, 9, 7),                          488,  424, 61},
    {ct64,                                  400,  260, 62},
};

// Alternate and HalfComplex need no more words than their names.
constexpr OddBins alternate = {.form = Alternate};
constexpr OddBins halfComplex = {.form = HalfComplex};
constexpr OddBins mirrored = {.form = HalfComplexMirrored};

constexpr OddBins interleaved(int sequences)
{
    return {.form = Interleaved, .sequences = sequences};
}

constexpr OddBins with(OddBins bins, const RealStage& departure)
{
    bins.departure = &departure;
    return bins;
}

constexpr OddBins twoSequences = interleaved(2);
constexpr OddBins fourUpper = {.form = Interleaved, .sequences = 4, .classes = Classes::Upper};
constexpr OddBins sixUpper = {
    .form = Interleaved, .sequences = 6, .classes = Classes::Upper, .middle = &twoSequences};

// The inverse of 13 as the odd bins of forward 53 take it: products go into the rotation that they
// feed, their only uses.
constexpr RealRader inverse13In53 = {
    13, 2, gt(12, 3, 4), residues(6, 2, 3),
    {.form = Interleaved, .sequences = 2, .products = OddBins::Products::MergedIntoRotation}};
constexpr RealStage rader13In53 = raderBy(inverse13In53);

constexpr RealStage residues21 = residues(21, 7, 3);
constexpr RealStage gt6 = gt(6, 3, 2);
constexpr RealStage gt15 = gt(15, 5, 3);

// Forward transforms before the diagonal, inverse ones behind it.
constexpr RealRader forwardRaders[] = {
//   p  g  whole, p - 1                     even bins, (p - 1)/2     odd bins
    {11, 2, residues(10,  5,  2),           direct(5),               alternate},
    {13, 2, residues(12,  3,  4),           gt( 6,  2,  3),          twoSequences},
    {17, 3, ct(16, 4, 4, Eighths),          ct( 8,  4,  2, HalfComplexMirrored), mirrored},
    {19, 2, residues(18,  2,  9),           ct( 9,  3,  3),          alternate},
    {23, 5, residues(22,  2, rader11),      direct(11),              with(alternate, direct11)},
    {29, 2, residues(28,  4,  7),           gt(14,  2,  7),          twoSequences},
    {31, 3, residues(30,  5, residues6),    gt(15,  3,  5),          alternate},
    {37, 2, residues(36,  9,  4),           gt(18,  2,  9),          sixUpper},
    {41, 6, residues(40,  8,  5),           gt(20,  5,  4),          fourUpper},
    {43, 3, residues(42,  7, residues6),    gt(21,  3,  7),          alternate},
    {47, 5, residues(46,  2, 23),           rader(23),               alternate},
    {53, 2, residues(52, 13,  4),           gt(26,  2, 13),          with(twoSequences, rader13In53)},
    {59, 2, residues(58,  2, 29),           rader(29),               alternate},
    {61, 2, residues(60, residues15,  4),   gt(30, 15,  2),          twoSequences},
};

constexpr RealRader inverseRaders[] = {
//   p  g  whole, p - 1                     even bins, (p - 1)/2     odd bins
    {11, 2, gt(10,  2,  5),                 direct(5, 2),            alternate},
    {13, 2, gt(12,  3,  4),                 residues( 6,  2,  3),    halfComplex},
    {17, 3, ct(16,  8,  2, HalfComplexMirrored), ct( 8,  4,  2, Quarters), halfComplex},
    {19, 2, gt(18,  2,  9),                 ct( 9,  3,  3),          alternate},
    {23, 5, gt(22, direct11,  2),           direct(11, 4),           alternate},
    {29, 2, gt(28,  4,  7),                 residues(14,  2,  7),    twoSequences},
    {31, 3, gt(30, gt15,  2),               residues(15,  3,  5),    with(alternate, residues15)},
    {37, 2, gt(36,  9,  4),                 residues(18,  2,  9),    interleaved(6)},
    {41, 6, gt(40,  5,  8),                 residues(20,  5,  4),    interleaved(4)},
    {43, 3, gt(42, gt6,  7),                residues(21,  7,  3),    with(alternate, residues21)},
    {47, 5, gt(46, 23,  2),                 rader(23),               alternate},
    {53, 2, gt(52, 13,  4),                 residues(26, 13,  2),    twoSequences},
    {59, 2, gt(58, 29,  2),                 rader(29),               alternate},
    {61, 2, gt(60, gt12,  5),               residues(30,  5, residues6), with(twoSequences, residues15)},
};
// clang-format on

constexpr bool isSplitOf(int length, const RealStage& stage)
{
    return stage.length == length && isSplit(length, stage.method, stage.a.length, stage.b.length);
}

constexpr bool isWhole(const auto& table)
{
    return std::size(table) == highestLength - lowestLength + 1 &&
           std::ranges::all_of(table, [&](const auto& row) {
               return isSplitOf(lowestLength + static_cast<int>(&row - table), row.stage);
           });
}

constexpr bool isRader(const RealRader& row)
{
    return isSplitOf(row.prime - 1, row.whole) && isSplitOf((row.prime - 1) / 2, row.evenBins);
}

static_assert(isWhole(forward) && isWhole(inverse));
static_assert(std::ranges::all_of(forwardRaders, isRader) &&
              std::ranges::all_of(inverseRaders, isRader) && isRader(inverse13In53));

const RealRader& rowOf(std::span<const RealRader> table, int prime)
{
    const auto row = std::ranges::find(table, prime, &RealRader::prime);
    if (row == table.end())
        throw std::runtime_error("no real Rader plan for length " + std::to_string(prime));
    return *row;
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

const RealRader& forwardRader(int prime)
{
    return rowOf(forwardRaders, prime);
}

const RealRader& inverseRader(int prime)
{
    return rowOf(inverseRaders, prime);
}

} // namespace rvn::generator
