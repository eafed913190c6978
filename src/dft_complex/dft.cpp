// From a length to its method: the recursion of the complex DFT.

#include "dft_complex/builders.h"

#include <stdexcept>

namespace rvn::kernelgen
{

namespace
{

ComplexValues exchangeParts(ComplexView x)
{
    ComplexValues exchanged;
    for (const ComplexValue& value : x)
        exchanged.push_back({value.im, value.re});
    return exchanged;
}

} // namespace

ComplexValues complexDft(ComplexView x, int t)
{
    using namespace dft_complex;
    const int N = static_cast<int>(x.size());
    if (N == 1)
        return {x[0]};
    const ComplexPlan& plan = complexPlan(N);
    switch (plan.method) {
    case Method::Butterfly:
        return butterfly(x);
    case Method::Direct:
        return direct(x, t);
    case Method::CooleyTukey:
        return cooleyTukey(x, plan.first, plan.last, t);
    case Method::GoodThomas:
        return goodThomas(x, plan.first, plan.last, t);
    case Method::Rader:
        return rader(x, raderPlan(N), t);
    }
    throw std::logic_error("unknown method");
}

ComplexValues inverseComplexDft(ComplexView x)
{
    return exchangeParts(complexDft(exchangeParts(x), 1));
}

} // namespace rvn::kernelgen
