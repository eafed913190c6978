// Operation counts of a graph, held against the row of a plan table.
#pragma once

#include "kernelgen/graph.h"

#include <string_view>

namespace rvn::kernelgen
{

struct Counts {
    int additions = 0; // and subtractions
    int multiplications = 0;

    friend bool operator==(const Counts&, const Counts&) = default;
};

Counts countOperations(const Graph& graph);

// Throws std::runtime_error, naming family, length and both counts, when they differ.
void requireCounts(std::string_view family, int length, Counts expected, Counts found);

// The same of one count, such as "negated outputs".
void requireCount(std::string_view family, int length, std::string_view what, int expected,
                  int found);

} // namespace rvn::kernelgen
