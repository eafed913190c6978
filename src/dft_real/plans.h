// The plans of the real DFT and of its inverse.
#pragma once

#include "kernelgen/transforms.h"

#include <array>
#include <span>

namespace rvn::dft_real
{

// The method and stages of a length, first to last, and the counts of its kernels: additions and
// subtractions with the negations of negated outputs, multiplications with those by S, outputs that
// are negated after scaling, and outputs of a binary32 kernel that are scaled in binary64.
struct ForwardPlan {
    kernelgen::Stage stage;
    int additions;
    int multiplications;
    int negatedOutputs;
    int scaledInBinary64;
};

// The same of the inverse kernels: multiplications with those by S and the doublings. `inner` is a
// stage that does not run as its own row says.
struct InversePlan {
    kernelgen::Stage stage;
    int additions;
    int multiplications;
    int doublings;
    kernelgen::Stage inner = {};
};

// How a transform over the odd frequencies of twice its length n runs (odd_bins.h).
struct OddBins {
    enum class Kind { Alternate, HalfComplex, Interleaved };
    Kind kind;
    int sequences = 1;           // Interleaved: how many
    bool mergesRotation = false; // products go into the rotation that they feed, their only uses
};

// Rader's method on real data: the generator, and what the transforms around the diagonal are made
// of. Forward, the first has length prime - 1 and the second is a pair of (prime - 1)/2, of the
// even and of the odd bins; inverse, the other way around. oddStage holds for the odd bins alone.
struct RealRaderPlan {
    int prime;
    int generator;
    OddBins oddBins;
    std::array<kernelgen::Stage, 2> first;
    std::array<kernelgen::Stage, 2> second;
    kernelgen::Stage oddStage = {};
};

std::span<const ForwardPlan> forwardPlans(); // lengths 2 to 64
std::span<const InversePlan> inversePlans(); // lengths 2 to 64

// Rader's method for a prime. Throws std::out_of_range for any other.
const RealRaderPlan& forwardRaderPlan(int prime);
const RealRaderPlan& inverseRaderPlan(int prime, bool otherForm);

} // namespace rvn::dft_real
