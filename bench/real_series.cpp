// The names of its kernels and the contenders; length_series.h does the rest. Peers are compared
// with the kernel of the layout CCS, which is theirs.

#include "real_series.h"

#include "kernel_work.h"
#include "real_contenders.h"

#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

template <typename Real> Series series(const Options& options)
{
    const std::string name =
        options.direction == Direction::Forward ? "DFTFwd_RToCCS_" : "DFTInv_CCSToR_";
    const auto entrants = [=](Buffers<Real>& buffers, int length) {
        return realEntrants(buffers, length, options.direction, options.placement);
    };
    return lengthSeries<Real>(
        {.name = name + (std::is_same_v<Real, float> ? "32f" : "64f"),
         .firstPeer = firstRealPeer,
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
