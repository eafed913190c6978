// How exact a contender of a transform by length is.
#pragma once

#include "contender.h"
#include "direct_sum.h"
#include "input.h"

#include <functional>
#include <span>
#include <vector>

// What a contender is given, and what is right for it to return, each in the order of memory.
template <typename Real> struct Problem {
    std::vector<Real> input;
    Numbers output;
};

template <typename Real> using Draw = std::function<Problem<Real>(Random&)>;

// The relative error in the 2-norm over a number of random problems: the square root of (sum of
// |found - exact|^2) / (sum of |exact|^2). The contender reads the source and writes the
// destination, the same array in place. Throws std::runtime_error if the error is too large for
// rounding to be its cause.
template <typename Real>
double relativeRmsError(const Contender& contender, const Draw<Real>& draw, std::span<Real> source,
                        std::span<Real> destination, int trials);
