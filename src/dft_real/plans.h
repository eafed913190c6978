// The plans of the real DFT and of its inverse, as far as longer transforms run through them.
#pragma once

#include "kernelgen/transforms.h"

#include <array>
#include <span>

namespace rvn::dft_real
{

// The method and stages of a length, first to last, and the operation counts of its graph alone:
// without scaling, negated outputs and doublings.
struct RealPlan {
    kernelgen::Stage stage;
    int additions;
    int multiplications;
};

// How a transform over the odd frequencies of twice its length n runs (odd_bins.h).
enum class OddBins {
    Alternate,      // n odd: a real transform of alternating signs
    HalfComplex,    // n even: a complex transform of n/2 rotated pairs
    PairedRotations // n = 2 h, h odd: two real transforms of size h and rotations between pairs
};

// Rader's method on real data: what the first and the second transform around the diagonal are
// made of. Forward, the second pair of transforms has length (prime - 1)/2; inverse, the first.
struct RealRaderPlan {
    int prime;
    int generator;
    OddBins oddBins;
    std::array<kernelgen::Stage, 2> first;
    std::array<kernelgen::Stage, 2> second;
};

std::span<const RealPlan> forwardPlans();
std::span<const RealPlan> inversePlans();
std::span<const RealRaderPlan> forwardRaderPlans();
std::span<const RealRaderPlan> inverseRaderPlans();

// The row of a length in a table; throws std::out_of_range where it has none.
const RealPlan& planOf(std::span<const RealPlan> table, int length);
const RealRaderPlan& planOf(std::span<const RealRaderPlan> table, int prime);

} // namespace rvn::dft_real
