// The methods of the complex DFT. Each takes the N elements of x and a root exponent t and returns
//   X[k] = sum over n of x[n] W^(t n k),  W = e^(-2 pi i / N),  k = 0 to N - 1.
// complexDft() of kernelgen/transforms.h picks the method of a length from the plan table.
#pragma once

#include "dft_complex/plans.h"

namespace rvn::dft_complex
{

using kernelgen::ComplexValue;
using kernelgen::ComplexValues;
using kernelgen::ComplexView;

ComplexValues butterfly(ComplexView x);
ComplexValues direct(ComplexView x, int t);
ComplexValues cooleyTukey(ComplexView x, int a, int b, int t);
ComplexValues goodThomas(ComplexView x, int a, int b, int t);
ComplexValues rader(ComplexView x, const RaderPlan& plan, int t);

} // namespace rvn::dft_complex
