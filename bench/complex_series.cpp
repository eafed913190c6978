// The names of its kernels and the contenders; length_series.h does the rest.

#include "complex_series.h"

#include "complex_contenders.h"
#include "kernel_work.h"

#include <type_traits>

using namespace rvn::bench; // kernel_work.h

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
