// From a stage to its method: the recursion of the real DFT and of its inverse.

#include "generator/dft_real/real_methods.h"

namespace rvn::generator
{

namespace
{

constexpr int lowestLength = 2;

// The stage of a factor: its own, or the row of its length.
template <typename Plan> const RealStage& stageOf(const Factor& factor, std::span<const Plan> table)
{
    if (factor.departure != nullptr)
        return *factor.departure;
    return table[factor.length - lowestLength].stage;
}

void requireStage(const RealStage& stage, std::size_t size)
{
    requireSplit(size, stage.length, stage.method, stage.a.length, stage.b.length);
}

} // namespace

HalfSpectrum realDft(const Factor& factor, ValuesView x, int t)
{
    const RealStage& stage = stageOf(factor, forwardPlans());
    requireStage(stage, x.size());
    switch (stage.method) {
    case Method::Butterfly:
        return butterflyForward(x);
    case Method::Direct:
        return directForward(stage, x, t);
    case Method::CooleyTukey:
        return cooleyTukeyForward(stage, x, t);
    case Method::GoodThomas:
        return goodThomasForward(stage, x, t);
    case Method::Rader:
        return raderForward(stage.rader ? *stage.rader : forwardRader(stage.length), x, t);
    }
    throw std::logic_error("unknown method");
}

Values inverseRealDft(const Factor& factor, const HalfSpectrum& X)
{
    const RealStage& stage = stageOf(factor, inversePlans());
    requireStage(stage, X.length);
    switch (stage.method) {
    case Method::Butterfly:
        return butterflyInverse(X);
    case Method::Direct:
        return directInverse(X);
    case Method::CooleyTukey:
        return cooleyTukeyInverse(stage, X);
    case Method::GoodThomas:
        return goodThomasInverse(stage, X);
    case Method::Rader:
        return raderInverse(stage.rader ? *stage.rader : inverseRader(stage.length), X);
    }
    throw std::logic_error("unknown method");
}

} // namespace rvn::generator
