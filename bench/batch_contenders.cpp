// Who is called, and how: the calls below are what is timed.
//
// Ours      rows: the kernel in a loop. Columns: as many as share a cache line are copied to a
//           panel, transformed there, and copied to their places from a second panel.
// FFTW      one plan for all signals, planned with FFTW_PATIENT for these very arrays.

#include "batch_contenders.h"

#include "fftw_plans.h"

namespace
{

constexpr std::size_t lineBytes = 64;

// Where element i of signal t is.
struct Places {
    int stride;
    int distance;

    std::size_t of(int i, int t) const
    {
        return static_cast<std::size_t>(i * stride + t * distance);
    }
};

Places placesOf(const Arrangement& arrangement, int elements)
{
    return arrangement.areColumns ? Places{arrangement.count, 1} : Places{1, elements};
}

template <typename Sample, typename Bin>
void transformRows(Kernel<Sample> kernel, const Sample* source, Bin* target, int length, int bins,
                   int count)
{
    for (int t = 0; t < count; ++t)
        kernel(source + t * length, reinterpret_cast<Sample*>(target + t * bins), RvnScaleNone);
}

template <typename Sample, typename Bin>
void transformColumns(Kernel<Sample> kernel, const Sample* source, Bin* target, int length,
                      int bins, int count)
{
    constexpr int together = lineBytes / sizeof(Sample);
    static_assert(largestCount % together == 0);
    Sample signals[together][longestLength];
    Bin spectra[together][longestLength];
    for (int first = 0; first < count; first += together) {
        for (int n = 0; n < length; ++n)
            for (int c = 0; c < together; ++c)
                signals[c][n] = source[n * count + first + c];
        for (int c = 0; c < together; ++c)
            kernel(signals[c], reinterpret_cast<Sample*>(spectra[c]), RvnScaleNone);
        for (int k = 0; k < bins; ++k)
            for (int c = 0; c < together; ++c)
                target[k * count + first + c] = spectra[c][k];
    }
}

template <typename Transform>
FftwPlan<typename Transform::Real> planMany(Batch<typename Transform::Real>& batch, int length,
                                            const Arrangement& arrangement, unsigned flags)
{
    using Real = typename Transform::Real;
    using Api = Fftw<Real>;
    using Complex = typename Api::Complex;
    const Places in = placesOf(arrangement, length);
    const Places out = placesOf(arrangement, Transform::bins(length));
    const auto plan = [&](auto planner, auto* source, auto... direction) {
        auto* const target = reinterpret_cast<Complex*>(batch.target.data());
        return planFftw<Real>(planner, 1, &length, arrangement.count, source, nullptr, in.stride,
                              in.distance, target, nullptr, out.stride, out.distance, direction...,
                              FFTW_PATIENT | flags);
    };
    if constexpr (std::is_same_v<typename Transform::Sample, Real>)
        return plan(Api::manyRealToComplex, batch.source.data());
    else
        return plan(Api::manyComplexToComplex, reinterpret_cast<Complex*>(batch.source.data()),
                    FFTW_FORWARD);
}

} // namespace

template <typename Transform>
std::vector<Contender> batchContenders(Batch<typename Transform::Real>& batch, int length,
                                       const Arrangement& arrangement)
{
    using Real = typename Transform::Real;
    using Sample = typename Transform::Sample;
    const Kernel<Sample> kernel = Transform::kernel(length);
    const auto* const source = reinterpret_cast<const Sample*>(batch.source.data());
    auto* const target = reinterpret_cast<Pair<Real>*>(batch.target.data());
    const int bins = Transform::bins(length);
    const int count = arrangement.count;
    std::vector<Contender> all;
    if (arrangement.areColumns)
        all.push_back(contender(
            "ours", [=] { transformColumns(kernel, source, target, length, bins, count); }));
    else
        all.push_back(
            contender("ours", [=] { transformRows(kernel, source, target, length, bins, count); }));
    for (const FftwVariant& variant : fftwVariants) {
        const auto plan = planMany<Transform>(batch, length, arrangement, variant.flags);
        all.push_back(contender(variant.name, [=] { Fftw<Real>::execute(plan.get()); }));
    }
    return all;
}

template <typename Transform>
Problem<typename Transform::Real> drawBatch(int length, const Arrangement& arrangement,
                                            Random& random)
{
    using Real = typename Transform::Real;
    constexpr int parts = sizeof(typename Transform::Sample) / sizeof(Real);
    const int bins = Transform::bins(length);
    const Places in = placesOf(arrangement, length);
    const Places out = placesOf(arrangement, bins);
    Problem<Real> problem = {drawn<Real>(parts * length * arrangement.count, random),
                             Numbers(static_cast<std::size_t>(2 * bins * arrangement.count))};
    for (int t = 0; t < arrangement.count; ++t) {
        Numbers signal;
        for (int n = 0; n < length; ++n)
            for (int part = 0; part < parts; ++part)
                signal.push_back(problem.input[parts * in.of(n, t) + part]);
        const Numbers spectrum = Transform::exact(signal);
        for (int k = 0; k < bins; ++k)
            for (int part = 0; part < 2; ++part)
                problem.output[2 * out.of(k, t) + part] = spectrum[2 * k + part];
    }
    return problem;
}

#define INSTANTIATE(Transform)                                                                     \
    template std::vector<Contender> batchContenders<Transform>(Batch<Transform::Real>&, int,       \
                                                               const Arrangement&);                \
    template Problem<Transform::Real> drawBatch<Transform>(int, const Arrangement&, Random&);
INSTANTIATE(ComplexBatch<double>)
INSTANTIATE(ComplexBatch<float>)
INSTANTIATE(RealBatch<double>)
INSTANTIATE(RealBatch<float>)
#undef INSTANTIATE
