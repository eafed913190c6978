// The transforms inside a DCT-IV, as graphs.
#pragma once

#include "generator/transforms/complex_values.h"

#include <functional>

namespace rvn::generator
{

// The radixes of the splits, outermost first; zeros behind them count for nothing.
using Radixes = std::span<const int>;

// The odd-frequency transform of L real numbers u[t], t = -L/2 to L/2 - 1, which is u(t + L/2):
//   Y(q) = sum over t of u[t] e^(i pi t (2q + 1) / L),  q = 0 to L/2 - 1.
ComplexValues oddFrequency(ValuesView u, Radixes radixes);

// Its transpose, L real outputs from L/2 complex inputs, in the same places:
//   W[t] = Re sum over q of T(q) e^(i pi t (2q + 1) / L).
// T is asked for each q once, in the order in which its rows are formed.
Values transposedOddFrequency(const std::function<ComplexValue(int q)>& T, int L, Radixes radixes);

// X[s] = sum over v of x[v] e^(2 pi i v s / r) of r = 2, 4 or 8 points.
ComplexValues positiveDft(ComplexView x);

} // namespace rvn::generator
