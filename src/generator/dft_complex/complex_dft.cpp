// From a stage to its method: the recursion of the complex DFT.

#include "generator/dft_complex/complex_methods.h"
#include "generator/transforms/gather.h"

namespace rvn::generator
{

namespace
{

ComplexValues exchangeParts(ComplexView x)
{
    return gather(static_cast<int>(x.size()), [&](int n) {
        return ComplexValue{x[n].im, x[n].re};
    });
}

} // namespace

ComplexValues complexDft(const ComplexStage& stage, ComplexView x, int t)
{
    requireSplit(x.size(), stage.length, stage.method, stage.a, stage.b);
    switch (stage.method) {
    case Method::Butterfly:
        return butterfly(x);
    case Method::Direct:
        return direct(x, t);
    case Method::CooleyTukey:
        return cooleyTukey(stage, x, t);
    case Method::GoodThomas:
        return goodThomas(stage, x, t);
    case Method::Rader:
        return rader(stage.rader ? *stage.rader : complexRader(stage.length), x, t);
    }
    throw std::logic_error("unknown method");
}

ComplexValues complexDft(ComplexView x, int t)
{
    if (x.size() == 1)
        return {x[0]};
    return complexDft(complexPlan(static_cast<int>(x.size())).stage, x, t);
}

ComplexValues inverseComplexDft(ComplexView x)
{
    return exchangeParts(complexDft(exchangeParts(x), 1));
}

} // namespace rvn::generator
