// The series of the Hartley transform.
//
// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel through its address, RvnScaleNone. It multiplies every output by S = 1,
//           which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, r2r of the kind FFTW_DHT, FFTW_PATIENT.
//
// The names of its kernels and the contenders; length_series.h does the rest.

#include "families.h"
#include "fftw_plans.h"
#include "kernel_work.h"
#include "kernels.h"

#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

template <typename Real> Draw<Real> problems(int length)
{
    return [=](Random& random) {
        const std::vector<Real> signal = drawn<Real>(length, random);
        return Problem<Real>{signal, directHartley({signal.begin(), signal.end()})};
    };
}

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

template <typename Real> Series series(const Options& options)
{
    const auto entrants = [=](Buffers<Real>& buffers, int length) {
        return hartleyEntrants(buffers, length, options.placement);
    };
    return lengthSeries<Real>(
        {.name = std::is_same_v<Real, float> ? "Hartley_32f" : "Hartley_64f",
         .firstPeer = 1,
         .entrants = entrants,
         .work = [](int length) { return hartleyWork(length, precisionOf<Real>); }},
        options);
}

} // namespace

std::vector<std::string> hartleyMethod(const Options&)
{
    return {"Hartley   ours: RvnScaleNone, which multiplies by 1; FFTW: r2r of the kind FFTW_DHT, "
            "FFTW_PATIENT,",
            "          scalar: FFTW_NO_SIMD"};
}

Series hartleySeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
