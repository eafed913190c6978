// The clock of the processor, in its own terms: a chain of integer additions, each of which waits
// for the one before and takes one cycle.
#pragma once

#include "contender.h"

namespace rvn::bench
{

inline constexpr int additionsInClockChain = 6400;

// One call is one chain. Timed in a round with others, it tells the cycles that those take.
Contender clockChain();

// In GHz, over a few rounds of the given time.
double clockNow(double seconds);

} // namespace rvn::bench
