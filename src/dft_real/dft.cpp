// From a length to its method: the recursion of the real DFT and of its inverse.

#include "dft_real/builders.h"

#include <stdexcept>

namespace rvn::dft_real
{

Stage stageOf(int length, Stages inner, std::span<const RealPlan> table)
{
    for (const Stage& stage : inner)
        if (stage.length == length)
            return stage;
    return planOf(table, length).stage;
}

} // namespace rvn::dft_real

namespace rvn::kernelgen
{

using namespace dft_real;

HalfSpectrum realDft(ValuesView x, Stages inner)
{
    const Stage stage = stageOf(static_cast<int>(x.size()), inner, forwardPlans());
    switch (stage.method) {
    case Method::Butterfly:
    case Method::Direct:
        return directForward(x);
    case Method::CooleyTukey:
        return cooleyTukeyForward(x, stage, inner);
    case Method::GoodThomas:
        return goodThomasForward(x, stage, inner);
    case Method::Rader:
        return raderForward(x, planOf(forwardRaderPlans(), stage.length));
    }
    throw std::logic_error("unknown method");
}

Values inverseRealDft(const HalfSpectrum& X, Stages inner)
{
    const Stage stage = stageOf(X.length, inner, inversePlans());
    switch (stage.method) {
    case Method::Butterfly:
    case Method::Direct:
        return directInverse(X);
    case Method::CooleyTukey:
        return cooleyTukeyInverse(X, stage, inner);
    case Method::GoodThomas:
        return goodThomasInverse(X, stage, inner);
    case Method::Rader:
        return raderInverse(X, planOf(inverseRaderPlans(), stage.length));
    }
    throw std::logic_error("unknown method");
}

} // namespace rvn::kernelgen
