// The time-stamp counter runs at a rate of its own, and virtual machines have no counter of cycles.
// Additions of two registers take a cycle on every processor; those of a constant may be merged.

#include "clock.h"

#include "measure.h"

#include <array>
#include <cstdint>

namespace rvn::bench
{

namespace
{

constexpr int rounds = 7;
constexpr int unrolled = 100; // additions without a jump

// The sum goes on from one call to the next, else they would overlap.
std::uint64_t runChain(std::uint64_t sum, std::uint64_t step)
{
    for (int i = 0; i < additionsInClockChain / unrolled; ++i)
        asm volatile(".rept %c2\n\tadd %1, %0\n\t.endr"
                     : "+r"(sum)
                     : "r"(step), "i"(unrolled)
                     : "cc");
    return sum;
}

} // namespace

Contender clockChain()
{
    static std::uint64_t sum = 0;
    return contender("clock", [] { sum = runChain(sum, 1); });
}

double clockNow(double seconds)
{
    const std::array<Contender, 1> chain = {clockChain()};
    return additionsInClockChain / measure(chain, rounds, seconds).front().nanoseconds;
}

} // namespace rvn::bench
