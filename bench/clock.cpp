// The time-stamp counter runs at a rate of its own, and virtual machines have no counter of cycles.
// Additions of two registers take a cycle on every processor; those of a constant may be merged.

#include "clock.h"

#include <array>
#include <cstdint>

namespace
{

constexpr int roundsNow = 7;
constexpr int additionsInChain = 6400;
constexpr int unrolled = 100; // additions without a jump

// The sum goes on from one call to the next, else they would overlap.
std::uint64_t runChain(std::uint64_t sum, std::uint64_t step)
{
    for (int i = 0; i < additionsInChain / unrolled; ++i)
        asm volatile(".rept %c2\n\tadd %1, %0\n\t.endr"
                     : "+r"(sum)
                     : "r"(step), "i"(unrolled)
                     : "cc");
    return sum;
}

// One call is one chain.
Contender clockChain()
{
    static std::uint64_t sum = 0;
    return contender("clock", [] { sum = runChain(sum, 1); });
}

} // namespace

TimingsAndCycles measureInCycles(std::vector<Contender> contenders, int rounds, double seconds)
{
    contenders.push_back(clockChain());
    std::vector<Timing> timings = measure(contenders, rounds, seconds);
    const double cycles = additionsInChain / timings.back().ratio;
    timings.pop_back();
    return {.timings = timings, .cycles = cycles};
}

double clockNow(double seconds)
{
    const std::array<Contender, 1> chain = {clockChain()};
    return additionsInChain / measure(chain, roundsNow, seconds).front().nanoseconds;
}
