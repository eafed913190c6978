// A row is a size N: what the contenders take, how this grows with N log2 N, how far ours is from
// the limit of scalar code, how exact the contenders are and how long they plan.
//
// A contender that is wrong ends the run before it is timed.

#include "dct4_series.h"

#include "clock.h"
#include "dct4_contenders.h"
#include "dct4_reference.h"
#include "extras.h"
#include "input.h"
#include "kernel_work.h"
#include "means.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

constexpr std::size_t firstPeer = 1;

// Of the accuracy: about so many outputs.
constexpr int outputsJudged = 4096;
constexpr int mostTrials = 64;

// Of a repetition, for each point. The largest sizes are called a few times in a row, so that they
// find in the caches what they left there and not what another contender did.
constexpr double secondsAPoint = 4e-8;

// Where neither the call nor the caches decide.
constexpr SizeRange middle = {.first = 64, .last = 2048};

Layout layout()
{
    const Names names = dct4ContenderNames();
    const Extra planning = {.title = "microseconds to plan",
                            .summary = "microseconds to plan",
                            .key = "planning",
                            .names = names,
                            .printed = 2,
                            .format = "%.1f",
                            .meanName = "geometric mean",
                            .mean = geometricMean};
    std::vector<Extra> extras = {growthExtra(names)};
    std::ranges::copy(limitExtras(names), std::back_inserter(extras));
    extras.push_back(errorExtra(names));
    extras.push_back(planning);
    return {.size = "size",
            .sizes = {{.name = "N", .width = 8}},
            .contenders = names,
            .firstPeer = firstPeer,
            .ranges = {middle},
            .extras = extras};
}

template <typename Real>
double errorOf(const Dct4Entrant<Real>& entrant, const Dct4Buffers<Real>& buffers, int size,
               Placement placement)
try {
    const int trials = std::clamp(outputsJudged / size, 1, mostTrials);
    return relativeRmsError<Real>(entrant.contender, entrant.draw, buffers.source,
                                  buffers.destination(placement), trials);
} catch (const std::runtime_error& failure) {
    throw std::runtime_error(failure.what() + (" at size " + std::to_string(size)));
}

template <typename Real> Row measureSize(int size, const Options& options)
{
    const Dct4Buffers<Real> buffers(size, dct4PlanBytes<Real>(size));
    std::vector<Contender> contenders;
    std::vector<double> errors;
    std::vector<double> planning;
    for (const Dct4Entrant<Real>& entrant : dct4Entrants(buffers, size, options)) {
        contenders.push_back(entrant.contender);
        errors.push_back(errorOf(entrant, buffers, size, options.placement));
        planning.push_back(entrant.planning);
    }

    fillForTiming<Real>(buffers.source, options.placement);
    const double seconds = std::max(options.seconds, size * secondsAPoint);
    const TimingsAndCycles found = measureInCycles(contenders, options.repetitions, seconds);
    std::vector<std::vector<double>> extras = {growth(found.timings, firstPeer, size)};
    std::ranges::copy(overLimit(found, firstPeer, dct4Work(size)), std::back_inserter(extras));
    extras.push_back(errors);
    extras.push_back(planning);
    return {.sizes = {size}, .timings = found.timings, .extras = extras};
}

template <typename Real> Series series(const Options& options)
{
    return {.name = std::is_same_v<Real, float> ? "DCT4_32f" : "DCT4_64f",
            .layout = layout(),
            .sizes = options.sizes,
            .measure = [=](int size) { return measureSize<Real>(size, options); }};
}

} // namespace

std::vector<std::string> dct4Method(const Options& options)
{
    const std::string effort =
        options.quick
            ? "FFTW_MEASURE"
            : "FFTW_PATIENT to " + std::to_string(largestPatientSize) + ", FFTW_MEASURE beyond";
    return {
        "DCT-IV    ours: a plan in a block of the caller; FFTW: r2r of the kind FFTW_REDFT11, "
        "input kept,",
        "          " + effort + ", scalar: FFTW_NO_SIMD;",
        "          growth: nanoseconds over N log2 N; error: of a direct sum to " +
            std::to_string(largestDirectDct4) + ",",
        "          beyond of a fast transform, both in binary80; planning: ours the median of 7, "
        "FFTW's once;",
        "          repetitions of sizes from 2^18 are longer"};
}

Series dct4Series(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
