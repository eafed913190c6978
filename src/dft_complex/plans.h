// The plans of the complex DFT: one row a length, and the inner stages of Rader's method.
#pragma once

#include "kernelgen/transforms.h"

#include <array>
#include <span>

namespace rvn::dft_complex
{

// The method, the stages first to last, and the operation counts that the finished graph must
// have: additions and subtractions, and multiplications by constants. A Rader row has the factors
// of its inner transforms in the table below.
struct ComplexPlan {
    int length;
    kernelgen::Method method;
    int first;
    int last;
    int additions;
    int multiplications;
};

// Rader's method for a prime: the generator, and the stages of the first and of the second inner
// transform of length prime - 1, with those of their own stages that run in another way than their
// table says.
struct RaderPlan {
    int prime;
    int generator;
    std::array<kernelgen::Stage, 2> first;
    std::array<kernelgen::Stage, 2> second;
};

inline constexpr int lowestLength = 2;
inline constexpr int highestLength = 64;

std::span<const ComplexPlan> complexPlans(); // lengths 2 to 64
const ComplexPlan& complexPlan(int length);
const RaderPlan& raderPlan(int prime);

} // namespace rvn::dft_complex
