// The names of its kernels and the contenders; length_series.h does the rest.

#include "hartley_series.h"

#include "hartley_contenders.h"
#include "kernel_work.h"

#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

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
