// The methods of the real DFT and of its inverse, each computing by the stage or row it is given.
// realDft() and inverseRealDft() of transforms/recursion.h pick the method that a stage names.
#pragma once

#include "generator/dft_real/real_plans.h"
#include "generator/transforms/recursion.h"

namespace rvn::generator
{

// Forward, with root exponent t.
HalfSpectrum butterflyForward(ValuesView x);
HalfSpectrum directForward(const RealStage& stage, ValuesView x, int t);
HalfSpectrum goodThomasForward(const RealStage& stage, ValuesView x, int t);
HalfSpectrum cooleyTukeyForward(const RealStage& stage, ValuesView x, int t);
HalfSpectrum raderForward(const RealRader& row, ValuesView x, int t);

Values butterflyInverse(const HalfSpectrum& X);
Values directInverse(const HalfSpectrum& X);
Values goodThomasInverse(const RealStage& stage, const HalfSpectrum& X);
Values cooleyTukeyInverse(const RealStage& stage, const HalfSpectrum& X);
Values raderInverse(const RealRader& row, const HalfSpectrum& X);

} // namespace rvn::generator
