// Who is called, and how: the calls below are what is timed.
//
// Ours      rows: the kernel in a loop. Columns: as many as share a cache line are copied to a
//           panel, transformed there, and copied to their places from a second panel.
// FFTW      one plan for all signals, planned with FFTW_PATIENT for these very arrays.
//
// A row is a length, with a group of figures for each arrangement. A contender that is wrong ends
// the run before it is timed.

#include "accuracy.h"
#include "direct_sum.h"
#include "fftw_plans.h"
#include "kernels.h"
#include "measure.h"
#include "progress.h"
#include "studies.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

// How the signals lie, and their spectra likewise: one behind the other, or each in a column of a
// matrix, whose width is then the stride.
struct Arrangement {
    const char* name;
    bool areColumns;
    int count;
};

// With 256 columns the elements of a column fall on few places of a cache, with 272 on many.
inline constexpr std::array<Arrangement, 3> arrangements = {
    {{"256 rows", false, 256}, {"256 columns", true, 256}, {"272 columns", true, 272}}};
inline constexpr int largestCount = 272;

// Source and target are shifted against each other in a page.
template <typename Real> struct alignas(4096) Batch {
    std::array<Real, std::size_t(2 * longestLength * largestCount)> source;
    std::array<std::byte, 2112> gap;
    std::array<Real, std::size_t(2 * longestLength * largestCount)> target;
};

// What differs between the transforms: what a signal consists of, how many pairs its spectrum has,
// our kernel, the sum of the definition.
template <typename R> struct ComplexBatch {
    using Real = R;
    using Sample = Pair<R>;
    static constexpr const char* name = std::is_same_v<R, float> ? "CToC_32fc" : "CToC_64fc";
    static int bins(int length) { return length; }
    static Kernel<Sample> kernel(int length) { return fwdCToC.of<R>(length); }
    static Numbers exact(const Numbers& x) { return directComplexDft(x, Direction::Forward); }
};

template <typename R> struct RealBatch {
    using Real = R;
    using Sample = R;
    static constexpr const char* name = std::is_same_v<R, float> ? "RToCCS_32f" : "RToCCS_64f";
    static int bins(int length) { return length / 2 + 1; }
    static Kernel<Sample> kernel(int length) { return fwdRToCcs.of<R>(length); }
    static Numbers exact(const Numbers& x) { return directRealDft(x); }
};

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

constexpr std::array lengths = {2, 4, 8, 16, 17, 31, 32, 48, 60, 64};

// Nanoseconds are those of one transform.
template <typename Transform>
std::vector<Timing> measureBatch(Batch<typename Transform::Real>& batch, int length,
                                 const Arrangement& arrangement, const Options& options)
{
    const std::vector<Contender> contenders =
        batchContenders<Transform>(batch, length, arrangement);
    Random random(seed);
    const auto problem = drawBatch<Transform>(length, arrangement, random);
    const auto theOne = [&](Random&) { return problem; };
    for (const Contender& contender : contenders)
        relativeRmsError<typename Transform::Real>(contender, theOne, batch.source, batch.target,
                                                   1);
    std::vector<Timing> timings = measure(contenders, options.repetitions, options.seconds);
    for (Timing& timing : timings)
        timing.nanoseconds /= arrangement.count;
    return timings;
}

void printGroup(const std::vector<Timing>& timings)
{
    std::printf(" |");
    for (const Timing& timing : timings)
        std::printf("%8.1f", timing.nanoseconds);
    for (std::size_t peer = 1; peer < timings.size(); ++peer)
        std::printf("%7.2f", timings[peer].ratio);
}

template <typename Transform> void report(const Options& options)
{
    const auto batch = std::make_unique<Batch<typename Transform::Real>>();
    Progress progress(std::string("rvngenmx_bench, batches of ") + Transform::name,
                      lengths.size() * arrangements.size());
    std::vector<double> spreads;
    for (const int length : lengths) {
        std::vector<std::vector<Timing>> row;
        for (const Arrangement& arrangement : arrangements) {
            progress.step("length " + std::to_string(length) + ", " + arrangement.name);
            row.push_back(measureBatch<Transform>(*batch, length, arrangement, options));
            for (std::size_t peer = 1; peer < row.back().size(); ++peer)
                spreads.push_back(row.back()[peer].spread);
        }
        progress.clear();
        std::printf("%-10s%4d", Transform::name, length);
        for (const std::vector<Timing>& timings : row)
            printGroup(timings);
        std::printf("\n");
        std::fflush(stdout);
    }
    std::ranges::sort(spreads);
    std::printf("%14s   quartiles of a ratio within %.0f %% of it, of the worst within %.0f %%\n",
                "", 100 * spreads[spreads.size() / 2], 100 * spreads.back());
}

} // namespace

void reportBatches(const Options& options)
{
    std::printf("\nmany transforms, forward, out of place: nanoseconds a transform of ours and of "
                "FFTW's batched\nplans, scalar and SIMD, and how many times as fast as these ours "
                "is\n\n%14s",
                "");
    for (const Arrangement& arrangement : arrangements)
        std::printf(" |%38s", arrangement.name);
    std::printf("\n%-10s%4s", "DFT", "N");
    for (std::size_t i = 0; i < arrangements.size(); ++i)
        std::printf(" |%8s%8s%8s%7s%7s", "ours", "scalar", "SIMD", "scalar", "SIMD");
    std::printf("\n");
    for (const Precision precision : options.precisions) {
        if (precision == Precision::Double) {
            report<ComplexBatch<double>>(options);
            report<RealBatch<double>>(options);
        } else {
            report<ComplexBatch<float>>(options);
            report<RealBatch<float>>(options);
        }
    }
}
