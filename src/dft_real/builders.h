// The methods of the real DFT and of its inverse. realDft() and inverseRealDft() of
// kernelgen/transforms.h pick the method of a length from the stages given or the plan tables.
#pragma once

#include "dft_real/plans.h"

namespace rvn::dft_real
{

using kernelgen::ComplexValue;
using kernelgen::ComplexValues;
using kernelgen::HalfSpectrum;
using kernelgen::Stage;
using kernelgen::Stages;
using kernelgen::Value;
using kernelgen::Values;
using kernelgen::ValuesView;

// The stage of this length: the one named in inner, else the row of the table.
Stage stageOf(int length, Stages inner, std::span<const RealPlan> table);

HalfSpectrum directForward(ValuesView x);
HalfSpectrum goodThomasForward(ValuesView x, const Stage& stage, Stages inner);
HalfSpectrum cooleyTukeyForward(ValuesView x, const Stage& stage, Stages inner);
HalfSpectrum raderForward(ValuesView x, const RealRaderPlan& plan);

Values directInverse(const HalfSpectrum& X);
Values goodThomasInverse(const HalfSpectrum& X, const Stage& stage, Stages inner);
Values cooleyTukeyInverse(const HalfSpectrum& X, const Stage& stage, Stages inner);
Values raderInverse(const HalfSpectrum& X, const RealRaderPlan& plan);

} // namespace rvn::dft_real
