// The series of the complex DFT.
//
// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel through its address, RvnScaleNone. It multiplies every output by S = 1,
//           which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, FFTW_PATIENT: the call that its manual
//           names as the fastest.
// KissFFT   kiss_fft on a prepared state, binary32 only. In place it transforms into a block that
//           it allocates at every call, and copies it back.
//
// The names of its kernels and the contenders; length_series.h does the rest.

#include "families.h"
#include "fftw_plans.h"
#include "kernel_work.h"
#include "kernels.h"
#include "kiss_states.h"

#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

template <typename Real> Draw<Real> problems(int length, Direction direction)
{
    return [=](Random& random) {
        const std::vector<Real> signal = drawn<Real>(2 * length, random);
        return Problem<Real>{signal, directComplexDft({signal.begin(), signal.end()}, direction)};
    };
}

} // namespace

template <typename Real>
Entrants<Real> complexEntrants(Buffers<Real>& buffers, int length, Direction direction,
                               Placement placement)
{
    using Api = Fftw<Real>;
    using Complex = typename Api::Complex;
    Real* const source = buffers.source.data();
    Real* const destination = buffers.destination(placement);
    const bool forward = direction == Direction::Forward;
    const Draw<Real> draw = problems<Real>(length, direction);
    Entrants<Real> all;

    const Kernel<Pair<Real>> kernel = (forward ? fwdCToC : invCToC).template of<Real>(length);
    const auto* const src = reinterpret_cast<const Pair<Real>*>(source);
    auto* const dst = reinterpret_cast<Pair<Real>*>(destination);
    all.push_back({contender("ours", [=] { kernel(src, dst, RvnScaleNone); }), draw});

    for (const FftwVariant& variant : fftwVariants) {
        const FftwPlan<Real> plan =
            planFftw<Real>(Api::complexToComplex, length, reinterpret_cast<Complex*>(source),
                           reinterpret_cast<Complex*>(destination),
                           forward ? FFTW_FORWARD : FFTW_BACKWARD, FFTW_PATIENT | variant.flags);
        all.push_back({contender(variant.name, [=] { Api::execute(plan.get()); }), draw});
    }

    if constexpr (std::is_same_v<Real, float>) {
        const KissState<kiss_fft_cfg> state = planKiss(kiss_fft_alloc, length, direction);
        const auto* const in = reinterpret_cast<const kiss_fft_cpx*>(source);
        auto* const out = reinterpret_cast<kiss_fft_cpx*>(destination);
        all.push_back({contender("KissFFT", [=] { kiss_fft(state.get(), in, out); }), draw});
    }
    return all;
}

template Entrants<float> complexEntrants(Buffers<float>&, int, Direction, Placement);
template Entrants<double> complexEntrants(Buffers<double>&, int, Direction, Placement);

namespace
{

template <typename Real> Series series(const Options& options)
{
    const std::string name = options.direction == Direction::Forward ? "DFTFwd" : "DFTInv";
    const auto entrants = [=](Buffers<Real>& buffers, int length) {
        return complexEntrants(buffers, length, options.direction, options.placement);
    };
    return lengthSeries<Real>(
        {.name = name + "_CToC_" + (std::is_same_v<Real, float> ? "32fc" : "64fc"),
         .firstPeer = 1,
         .entrants = entrants,
         .work = [](int length) { return complexWork(length, precisionOf<Real>); }},
        options);
}

} // namespace

std::vector<std::string> complexMethod(const Options& options)
{
    std::vector<std::string> lines = {"DFT       ours: RvnScaleNone, which multiplies by 1; FFTW: "
                                      "FFTW_PATIENT, scalar: FFTW_NO_SIMD"};
    if (options.placement == Placement::InPlace)
        lines.push_back("          in place KissFFT copies");
    return lines;
}

Series complexSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
