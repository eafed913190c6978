// Google Benchmark runs what is registered, in that order; a reporter of our own gathers instead of
// printing.
//
// A machine that others use has fast and slow moments. So the contenders take turns in short
// rounds, each round in another order, and a ratio is taken within a round: its two times lie a few
// milliseconds apart and share the moment. The median over the rounds drops those that the change
// fell into. The time is that of the processor: what others run in between is left out.

#include "measure.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <stdexcept>

namespace
{

// What one run of one contender reports.
struct Sample {
    double nanoseconds; // of one call
    benchmark::IterationCount calls;
};

class Collector : public benchmark::BenchmarkReporter
{
public:
    std::vector<Sample> samples; // in the order of registration

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            samples.push_back({.nanoseconds = run.GetAdjustedCPUTime(), .calls = run.iterations});
    }
};

benchmark::internal::Benchmark* enter(const Contender& contender)
{
    return benchmark::RegisterBenchmark(contender.name.c_str(), contender.repeat)
        ->Unit(benchmark::kNanosecond);
}

std::vector<Sample> runEntered(std::size_t expected)
{
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector, ".");
    benchmark::ClearRegisteredBenchmarks();
    if (collector.samples.size() != expected)
        throw std::runtime_error("a contender was not timed");
    return collector.samples;
}

// How many calls of each contender take the given time.
std::vector<Sample> calibrate(std::span<const Contender> contenders, double seconds)
{
    for (const Contender& contender : contenders)
        enter(contender)->MinTime(seconds);
    return runEntered(contenders.size());
}

// The value below which the given share of the values lies, between neighbours by proportion.
double quantile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    const double position = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(position);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], position - std::floor(position));
}

// The times of a contender and of the first one, round by round.
Timing timing(const std::vector<double>& times, const std::vector<double>& first)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < times.size(); ++round)
        ratios.push_back(times[round] / first[round]);
    const double ratio = quantile(ratios, 0.5);
    const double farther = std::max(ratio - quantile(ratios, 0.25), quantile(ratios, 0.75) - ratio);
    return {.nanoseconds = quantile(times, 0.5), .ratio = ratio, .spread = farther / ratio};
}

} // namespace

std::vector<Timing> measure(std::span<const Contender> contenders, int rounds, double seconds)
{
    const std::vector<Sample> calibration = calibrate(contenders, seconds);

    std::vector<std::size_t> turns; // who runs when, over all rounds
    std::vector<std::size_t> round(contenders.size());
    std::iota(round.begin(), round.end(), std::size_t(0));
    std::mt19937 random(1);
    for (int i = 0; i < rounds; ++i) {
        std::ranges::shuffle(round, random);
        turns.insert(turns.end(), round.begin(), round.end());
    }

    for (const std::size_t turn : turns)
        enter(contenders[turn])->Iterations(calibration[turn].calls);
    const std::vector<Sample> samples = runEntered(turns.size());

    std::vector<std::vector<double>> times(contenders.size());
    for (std::size_t i = 0; i < turns.size(); ++i)
        times[turns[i]].push_back(samples[i].nanoseconds);

    std::vector<Timing> timings;
    for (const std::vector<double>& own : times)
        timings.push_back(timing(own, times.front()));
    return timings;
}
