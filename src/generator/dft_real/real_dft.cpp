// From a stage to its method: the recursion of the real DFT and of its inverse.

#include "generator/dft_real/real_methods.h"

#include <algorithm>

namespace rvn::generator
{

namespace
{

// The stage of a factor: its own, or the row of its length.
template <typename Plan> const RealStage& stageOf(const Factor& factor, std::span<const Plan> table)
{
    if (factor.departure != nullptr)
        return *factor.departure;
    const auto row = std::ranges::find_if(
        table, [&](const Plan& plan) { return plan.stage.length == factor.length; });
    if (row == table.end())
        throw std::runtime_error("no real DFT plan for length " + std::to_string(factor.length));
    return row->stage;
}

// A stage says nothing of what its direction does not ask for.
void require(bool isSaid, const RealStage& stage, const char* what)
{
    if (!isSaid)
        throw std::runtime_error(nameOf(stage) + " of length " + std::to_string(stage.length) +
                                 ": " + what);
}

void requireStage(const RealStage& stage, std::size_t size, bool isForward)
{
    requireSplit(size, stage.length, stage.method, stage.a.length, stage.b.length);
    const int half = stage.method == Method::Direct && isForward ? (stage.length - 1) / 2 : 0;
    require(stage.negatedBin <= half && (stage.negatedBin > 0) == (half > 0), stage,
            "a negated bin is one from 1 to (N - 1)/2 of a direct forward transform");
    require(stage.map == IndexMap::Equal || (isForward && stage.method == Method::GoodThomas),
            stage, "only a forward Good-Thomas split has an index map");
    require(stage.classes == Classes::Lower || (!isForward && stage.method == Method::CooleyTukey),
            stage, "only an inverse Cooley-Tukey split chooses its classes");
}

} // namespace

HalfSpectrum realDft(const Factor& factor, ValuesView x, int t)
{
    const RealStage& stage = stageOf(factor, forwardPlans());
    requireStage(stage, x.size(), true);
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
    requireStage(stage, X.length, false);
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
