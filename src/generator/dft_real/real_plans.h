// The plans of the real DFT and of its inverse: one row a length, and the rows of Rader's method.
#pragma once

#include "generator/dft_real/real_stages.h"

#include <span>

namespace rvn::generator
{

// The stage of a length, and the counts of its kernels: additions and subtractions with the
// negations of negated outputs, multiplications with those by S, outputs that are negated after
// scaling, and outputs of a binary32 kernel that are scaled in binary64.
struct ForwardPlan {
    RealStage stage;
    int additions;
    int multiplications;
    int negatedOutputs;
    int scaledInBinary64;
};

// The same of the inverse kernels: multiplications with those by S and the doublings.
struct InversePlan {
    RealStage stage;
    int additions;
    int multiplications;
    int doublings;
};

std::span<const ForwardPlan> forwardPlans(); // lengths 2 to 64
std::span<const InversePlan> inversePlans(); // lengths 2 to 64

// Rader's method for a prime. Both throw std::runtime_error for any other number.
const RealRader& forwardRader(int prime);
const RealRader& inverseRader(int prime);

} // namespace rvn::generator
