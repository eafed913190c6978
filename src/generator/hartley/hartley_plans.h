// The plans of the Hartley transform: a route to a real DFT graph, and the counts of the kernel.
#pragma once

#include <span>

namespace rvn::generator
{

// Output: the forward real DFT, then H[k] = R(k) - I(k) and H[N-k] = R(k) + I(k). Input: the sums
// and differences of conjugate places, then the inverse real DFT. Either: both are the same graph.
enum class Route { Either, Output, Input };

// Multiplications with those by S.
struct HartleyPlan {
    int length;
    Route route;
    int additions;
    int multiplications;
};

std::span<const HartleyPlan> hartleyPlans(); // lengths 2 to 64

} // namespace rvn::generator
