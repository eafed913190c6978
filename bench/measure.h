// Timing with Google Benchmark: the contenders of one size against each other.
#pragma once

#include "contender.h"

#include <span>
#include <vector>

// One contender over all rounds.
struct Timing {
    double nanoseconds; // of one call: the median
    double ratio;       // its time over that of the first contender in the same round: the median
    double spread;      // how far the farther quartile of the ratio lies from it, as a share of it
};

// One timing a contender, in their order. In a round every contender runs once, for about the given
// time.
std::vector<Timing> measure(std::span<const Contender> contenders, int rounds, double seconds);
