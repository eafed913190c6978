// The clock of the processor, in its own terms: a chain of integer additions, each of which waits
// for the one before and takes one cycle.
#pragma once

#include "contender.h"
#include "measure.h"

#include <vector>

struct TimingsAndCycles {
    std::vector<Timing> timings; // as measure() gives them
    double cycles;               // of a call of the first contender
};

// As measure() does, with a chain in every round: the cycle is that of the moment.
TimingsAndCycles measureInCycles(std::vector<Contender> contenders, int rounds, double seconds);

// In GHz, over a few rounds of the given time.
double clockNow(double seconds);
