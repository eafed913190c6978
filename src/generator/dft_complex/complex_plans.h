// The plans of the complex DFT: one row a length, and the inner transforms of Rader's method.
#pragma once

#include "generator/dft_real/real_stages.h"

#include <span>

namespace rvn::generator
{

// Rader's method for a prime: the generator, and the real transforms of length prime - 1 on either
// side of the diagonal.
struct ComplexRader {
    int prime;
    int generator;
    RealStage first;
    RealStage second;
};

// How a length is computed. The stages a and b run by the rows of their own lengths.
struct ComplexStage {
    int length;
    Method method;
    int a = 1;
    int b = 1;
    const ComplexRader* rader = nullptr; // Rader: null for the row of the prime
};

// The stage, and the operation counts that the finished graph must have: additions and
// subtractions, and multiplications by constants.
struct ComplexPlan {
    ComplexStage stage;
    int additions;
    int multiplications;
};

std::span<const ComplexPlan> complexPlans(); // lengths 2 to 64

// Both throw std::runtime_error for a length without a row.
const ComplexPlan& complexPlan(int length);
const ComplexRader& complexRader(int prime);

} // namespace rvn::generator
