// The series of the real DFT.
//
// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel of a layout through its address, RvnScaleNone. It multiplies every output by
//           S = 1, which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, FFTW_PATIENT; r2c and c2r, whose half
//           spectrum is ours of the layout CCS. Out of place c2r is planned with
//           FFTW_PRESERVE_INPUT: it leaves its input alone, as the others do.
// KissFFT   kiss_fftr and kiss_fftri on a prepared state, the same half spectrum, binary32 and even
//           lengths only.
//
// The names of its kernels and the contenders; length_series.h does the rest. Peers are compared
// with the kernel of the layout CCS, which is theirs.

#include "families.h"
#include "fftw_plans.h"
#include "half_spectrum.h"
#include "kernel_work.h"
#include "kernels.h"
#include "kiss_states.h"

#include <array>
#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

constexpr std::size_t firstPeer = 3; // behind the layouts CCS, Pack and Perm

struct OurLayout {
    const char* name;
    HalfSpectrum layout;
    const RealKernels* forward;
    const RealKernels* inverse;
};

constexpr std::array<OurLayout, firstPeer> ourLayouts = {{
    {"ours CCS", HalfSpectrum::Ccs, &fwdRToCcs, &invCcsToR},
    {"ours Pack", HalfSpectrum::Pack, &fwdRToPack, &invPackToR},
    {"ours Perm", HalfSpectrum::Perm, &fwdRToPerm, &invPermToR},
}};

template <typename Real> Draw<Real> forwardProblems(int length, HalfSpectrum layout)
{
    return [=](Random& random) {
        const std::vector<Real> signal = drawn<Real>(length, random);
        const Numbers spectrum = directRealDft({signal.begin(), signal.end()});
        return Problem<Real>{signal, arranged(spectrum, length, layout)};
    };
}

// The spectrum of a real signal is real at 0 and at N/2.
template <typename Real> Draw<Real> inverseProblems(int length, HalfSpectrum layout)
{
    return [=](Random& random) {
        std::vector<Real> spectrum = drawn<Real>(2 * (length / 2 + 1), random);
        spectrum[1] = 0;
        if (length % 2 == 0)
            spectrum.back() = 0;
        const Numbers signal = directInverseRealDft({spectrum.begin(), spectrum.end()}, length);
        return Problem<Real>{arranged(spectrum, length, layout), signal};
    };
}

template <typename Real> Draw<Real> problems(int length, Direction direction, HalfSpectrum layout)
{
    return direction == Direction::Forward ? forwardProblems<Real>(length, layout)
                                           : inverseProblems<Real>(length, layout);
}

template <typename Real>
FftwPlan<Real> plan(int length, Real* source, Real* destination, Direction direction,
                    unsigned flags)
{
    using Complex = typename Fftw<Real>::Complex;
    if (direction == Direction::Forward)
        return planFftw<Real>(Fftw<Real>::realToComplex, length, source,
                              reinterpret_cast<Complex*>(destination), flags);
    const unsigned keep = source == destination ? 0U : FFTW_PRESERVE_INPUT;
    return planFftw<Real>(Fftw<Real>::complexToReal, length, reinterpret_cast<Complex*>(source),
                          destination, flags | keep);
}

Contender kissContender(int length, float* source, float* destination, Direction direction)
{
    const KissState<kiss_fftr_cfg> state = planKiss(kiss_fftr_alloc, length, direction);
    if (direction == Direction::Forward) {
        auto* const out = reinterpret_cast<kiss_fft_cpx*>(destination);
        return contender("KissFFT", [=] { kiss_fftr(state.get(), source, out); });
    }
    const auto* const in = reinterpret_cast<const kiss_fft_cpx*>(source);
    return contender("KissFFT", [=] { kiss_fftri(state.get(), in, destination); });
}

template <typename Real>
Entrants<Real> realEntrants(Buffers<Real>& buffers, int length, Direction direction,
                            Placement placement)
{
    Real* const source = buffers.source.data();
    Real* const destination = buffers.destination(placement);
    Entrants<Real> all;

    for (const OurLayout& ours : ourLayouts) {
        const RealKernels& kernels =
            direction == Direction::Forward ? *ours.forward : *ours.inverse;
        const Kernel<Real> kernel = kernels.template of<Real>(length);
        all.push_back({contender(ours.name, [=] { kernel(source, destination, RvnScaleNone); }),
                       problems<Real>(length, direction, ours.layout)});
    }

    const Draw<Real> draw = problems<Real>(length, direction, HalfSpectrum::Ccs);
    for (const FftwVariant& variant : fftwVariants) {
        const FftwPlan<Real> planned =
            plan(length, source, destination, direction, FFTW_PATIENT | variant.flags);
        all.push_back({contender(variant.name, [=] { Fftw<Real>::execute(planned.get()); }), draw});
    }

    if constexpr (std::is_same_v<Real, float>)
        if (length % 2 == 0)
            all.push_back({kissContender(length, source, destination, direction), draw});
    return all;
}

template <typename Real> Series series(const Options& options)
{
    const std::string name =
        options.direction == Direction::Forward ? "DFTFwd_RToCCS_" : "DFTInv_CCSToR_";
    const auto entrants = [=](Buffers<Real>& buffers, int length) {
        return realEntrants(buffers, length, options.direction, options.placement);
    };
    return lengthSeries<Real>(
        {.name = name + (std::is_same_v<Real, float> ? "32f" : "64f"),
         .firstPeer = firstPeer,
         .entrants = entrants,
         .work =
             [=](int length) { return realWork(length, precisionOf<Real>, options.direction); }},
        options);
}

} // namespace

std::vector<std::string> realMethod(const Options& options)
{
    std::vector<std::string> lines = {
        "real DFT  ours: RvnScaleNone, which multiplies by 1; FFTW: FFTW_PATIENT, scalar: "
        "FFTW_NO_SIMD;",
        "          ratios: peer over ours of the layout CCS, which the peers share; KissFFT: even "
        "lengths"};
    if (options.direction == Direction::Inverse && options.placement == Placement::OutOfPlace)
        lines.push_back("          inverse: FFTW_PRESERVE_INPUT, so that the input stays");
    return lines;
}

Series realSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
