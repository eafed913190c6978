// A row is a length, with a group of figures for each arrangement. A contender that is wrong ends
// the run before it is timed.

#include "studies.h"

#include "batch_contenders.h"
#include "measure.h"
#include "progress.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>

namespace
{

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
