// A round calls every length once, in an order drawn once and the same for all contenders, and is
// timed like a transform. Each call costs one more jump through an address than in the hot loops,
// for every contender.

#include "studies.h"

#include "families.h"
#include "input.h"
#include "measure.h"
#include "progress.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{

// By length, in the order of the round.
template <typename Real>
std::vector<std::vector<Contender>> contendersOfAll(Buffers<Real>& buffers, Progress& progress)
{
    std::vector<int> lengths = allSizes(shortestLength, longestLength);
    Random random(seed);
    std::ranges::shuffle(lengths, random);
    std::vector<std::vector<Contender>> all;
    for (const int length : lengths) {
        progress.step("planning length " + std::to_string(length));
        std::vector<Contender> contenders;
        for (const Entrant<Real>& entrant :
             complexEntrants(buffers, length, Direction::Forward, Placement::OutOfPlace))
            contenders.push_back(entrant.contender);
        all.push_back(contenders);
    }
    return all;
}

// A contender for each of them: its calls of all lengths.
std::vector<Contender> rounds(const std::vector<std::vector<Contender>>& all)
{
    std::vector<Contender> rounds;
    for (std::size_t i = 0; i < all.front().size(); ++i) {
        std::vector<std::function<void()>> calls;
        for (const std::vector<Contender>& ofLength : all)
            calls.push_back(ofLength[i].transform);
        rounds.push_back(contender(all.front()[i].name, [calls] {
            for (const std::function<void()>& call : calls)
                call();
        }));
    }
    return rounds;
}

// The sum over the lengths of each contender's time in a loop of its own.
std::vector<double> hotSums(const std::vector<std::vector<Contender>>& all, const Options& options,
                            Progress& progress)
{
    std::vector<double> sums(all.front().size());
    for (const std::vector<Contender>& ofLength : all) {
        progress.step("a loop over one length");
        const std::vector<Timing> timings = measure(ofLength, options.repetitions, options.seconds);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += timings[i].nanoseconds;
    }
    return sums;
}

template <typename Real> void report(const std::string& suffix, const Options& options)
{
    const auto buffers = std::make_unique<Buffers<Real>>();
    constexpr std::size_t lengths = longestLength - shortestLength + 1;
    Progress progress("rvngenmx_bench, lengths in turn, " + suffix, 2 * lengths);
    const auto all = contendersOfAll(*buffers, progress);
    fillForTiming<Real>(buffers->source, Placement::OutOfPlace);
    const std::vector<Timing> timings = measure(rounds(all), options.repetitions, options.seconds);
    const std::vector<double> hot = hotSums(all, options, progress);
    progress.clear();
    for (std::size_t i = 0; i < hot.size(); ++i)
        std::printf("%-6s%-12s |%12.0f%12.0f%12.2f |%12.2f%12.2f\n", suffix.c_str(),
                    all.front()[i].name.c_str(), timings[i].nanoseconds, hot[i],
                    timings[i].nanoseconds / hot[i], timings[i].ratio, hot[i] / hot.front());
    std::fflush(stdout);
}

} // namespace

void reportMixedLengths(const Options& options)
{
    std::printf("\nall lengths from %d to %d in turn, complex DFT, forward\n\n", shortestLength,
                longestLength);
    std::printf("%18s |%36s |%24s\n", "", "nanoseconds of the 63 calls", "time over ours");
    std::printf("%18s |%12s%12s%12s |%12s%12s\n", "", "in turn", "hot loops", "quotient", "in turn",
                "hot loops");
    for (const Precision precision : options.precisions) {
        if (precision == Precision::Double)
            report<double>("64fc", options);
        else
            report<float>("32fc", options);
    }
}
