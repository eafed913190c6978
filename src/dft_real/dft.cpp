// From a length to its method: the recursion of the real DFT and of its inverse.

#include "dft_real/builders.h"

#include <stdexcept>

namespace rvn::kernelgen
{

using namespace dft_real;

namespace
{

constexpr int lowestLength = 2;

// The stage of this length: the one handed down, else the row of the table.
template <typename Plan>
Stage stageOf(int length, const Nesting& inner, std::span<const Plan> table)
{
    for (const Stage& stage : inner.stages)
        if (stage.length == length)
            return stage;
    return table[length - lowestLength].stage;
}

} // namespace

HalfSpectrum realDft(ValuesView x, int t, const Nesting& inner)
{
    const Stage stage = stageOf(static_cast<int>(x.size()), inner, forwardPlans());
    switch (stage.method) {
    case Method::Butterfly:
    case Method::Direct:
        return directForward(x, t);
    case Method::CooleyTukey:
        return cooleyTukeyForward(x, stage, t, inner);
    case Method::GoodThomas:
        return goodThomasForward(x, stage, t, inner);
    case Method::Rader:
        return raderForward(x, forwardRaderPlan(stage.length), t);
    }
    throw std::logic_error("unknown method");
}

Values inverseRealDft(const HalfSpectrum& X, const Nesting& inner)
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
        return raderInverse(X, inverseRaderPlan(stage.length, stage.otherForm));
    }
    throw std::logic_error("unknown method");
}

} // namespace rvn::kernelgen
