// The recursion in which the families meet: a complex prime length runs through real transforms of
// its parts, and a real composite length has complex columns. Each of these functions computes by
// the stage that it is given, and throws std::runtime_error where that is none of its length; each
// family implements its own.
#pragma once

#include "generator/transforms/half_spectrum.h"

namespace rvn::generator
{

struct ComplexStage; // dft_complex/complex_plans.h
struct Factor;       // dft_real/real_stages.h: a stage, or a length with its row of the plan table

// X[k] = sum over n of x[n] e^(-2 pi i t n k / N), with t coprime to N.
ComplexValues complexDft(const ComplexStage& stage, ComplexView x, int t);

// The same by the row of its own length, N being the size of x.
ComplexValues complexDft(ComplexView x, int t);

// y[n] = sum over k of X[k] e^(+2 pi i n k / N): the forward transform with the parts exchanged.
ComplexValues inverseComplexDft(ComplexView x);

// X[k] = sum over n of x[n] e^(-2 pi i t n k / N), k = 0 to N/2, of real x.
HalfSpectrum realDft(const Factor& factor, ValuesView x, int t);

// y[n] = R(0) + sum over k of (r(k) cos(2 pi n k / N) - s(k) sin(2 pi n k / N)) + (-1)^n R(N/2),
// k from 1 to (N-1)/2, of the half spectrum whose inner bins (r, s) are doubled already.
Values inverseRealDft(const Factor& factor, const HalfSpectrum& X);

} // namespace rvn::generator
