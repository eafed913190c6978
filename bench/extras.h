// The groups of extra figures that several series have.
#pragma once

#include "clock.h"
#include "limit.h"
#include "series.h"

#include <string>
#include <vector>

// What the limits are, for the head of the output.
std::vector<std::string> limitMethod();

// Which contenders of a layout have figures of their own: the first of ours and the peers.
Names judged(const Names& contenders, std::size_t firstPeer);

Extra errorExtra(const Names& names);

// Nanoseconds over N log2 N.
Extra growthExtra(const Names& names);
std::vector<double> growth(const std::vector<Timing>& timings, std::size_t firstPeer, int size);

// Two groups: the cycles of our call beside the limit, and the times of all over the limit of our
// operations.
std::vector<Extra> limitExtras(const Names& names);
std::vector<std::vector<double>> overLimit(const TimingsAndCycles& found, std::size_t firstPeer,
                                           const Work& work);

// A third one: our time over the limits of other cores. Without conversions two of them are one.
Extra coresExtra(bool converts);
std::vector<double> overCores(const TimingsAndCycles& found, const Work& work, bool converts);
