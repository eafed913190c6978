// The methods of the complex DFT. Each takes the N elements of x and a root exponent t and returns
//
//     X[k] = sum over n of x[n] W^(t n k),  W = e^(-2 pi i / N),  k = 0 to N - 1.
//
// complexDft() of transforms/recursion.h picks the method that a stage names.
#pragma once

#include "generator/dft_complex/complex_plans.h"
#include "generator/transforms/recursion.h"

namespace rvn::generator
{

ComplexValues butterfly(ComplexView x);
ComplexValues direct(ComplexView x, int t);
ComplexValues cooleyTukey(const ComplexStage& stage, ComplexView x, int t);
ComplexValues goodThomas(const ComplexStage& stage, ComplexView x, int t);
ComplexValues rader(const ComplexRader& row, ComplexView x, int t);

} // namespace rvn::generator
