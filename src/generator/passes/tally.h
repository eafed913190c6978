// What a graph costs, all of it counted in one way.
#pragma once

#include "generator/graph/graph.h"

namespace rvn::generator
{

struct Tally {
    int additions = 0;        // subtractions with them, and the negations of negated outputs
    int multiplications = 0;  // by constants, of two values, and of outputs by S
    int doublings = 0;        // of the multiplications, those by 2
    int negatedOutputs = 0;   // stored as 0 - x
    int scaledInBinary64 = 0; // of a binary32 kernel's outputs, those that are scaled in binary64

    friend bool operator==(const Tally&, const Tally&) = default;
};

// Of a graph whose outputs are all multiplied by S, or none.
Tally tally(const Graph& graph, bool isScaled);

Tally operator+(const Tally& x, const Tally& y);
Tally operator*(int times, const Tally& x);

} // namespace rvn::generator
