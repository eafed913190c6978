// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel through its address, RvnScaleNone. It multiplies every output by S = 1,
//           which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, r2r of the kind FFTW_DHT, FFTW_PATIENT.

#include "hartley_contenders.h"

#include "fftw_plans.h"
#include "kernels.h"

namespace
{

template <typename Real> Draw<Real> problems(int length)
{
    return [=](Random& random) {
        const std::vector<Real> signal = drawn<Real>(length, random);
        return Problem<Real>{signal, directHartley({signal.begin(), signal.end()})};
    };
}

} // namespace

template <typename Real>
Entrants<Real> hartleyEntrants(Buffers<Real>& buffers, int length, Placement placement)
{
    using Api = Fftw<Real>;
    Real* const source = buffers.source.data();
    Real* const destination = buffers.destination(placement);
    const Draw<Real> draw = problems<Real>(length);

    const Kernel<Real> kernel = hartleyKernels.of<Real>(length);
    Entrants<Real> all = {
        {contender("ours", [=] { kernel(source, destination, RvnScaleNone); }), draw}};
    for (const FftwVariant& variant : fftwVariants) {
        const FftwPlan<Real> plan = planFftw<Real>(Api::realToReal, length, source, destination,
                                                   FFTW_DHT, FFTW_PATIENT | variant.flags);
        all.push_back({contender(variant.name, [=] { Api::execute(plan.get()); }), draw});
    }
    return all;
}

template Entrants<float> hartleyEntrants(Buffers<float>&, int, Placement);
template Entrants<double> hartleyEntrants(Buffers<double>&, int, Placement);
