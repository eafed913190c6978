// The methods of the real DFT and of its inverse. realDft() and inverseRealDft() of
// kernelgen/transforms.h pick the method of a length from the stages given or the plan tables.
#pragma once

#include "dft_real/plans.h"

namespace rvn::dft_real
{

using kernelgen::ComplexValue;
using kernelgen::ComplexValues;
using kernelgen::HalfSpectrum;
using kernelgen::Nesting;
using kernelgen::Stage;
using kernelgen::Value;
using kernelgen::Values;
using kernelgen::ValuesView;

// Forward, with root exponent t.
HalfSpectrum directForward(ValuesView x, int t);
HalfSpectrum goodThomasForward(ValuesView x, const Stage& stage, int t, const Nesting& inner);
HalfSpectrum cooleyTukeyForward(ValuesView x, const Stage& stage, int t, const Nesting& inner);
HalfSpectrum raderForward(ValuesView x, const RealRaderPlan& plan, int t);

Values directInverse(const HalfSpectrum& X);
Values goodThomasInverse(const HalfSpectrum& X, const Stage& stage, const Nesting& inner);
Values cooleyTukeyInverse(const HalfSpectrum& X, const Stage& stage, const Nesting& inner);
Values raderInverse(const HalfSpectrum& X, const RealRaderPlan& plan);

} // namespace rvn::dft_real
