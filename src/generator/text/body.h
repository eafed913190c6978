// Loads, arithmetic and stores of a scheduled graph, one operation a line.
#pragma once

#include "generator/order/choice.h"
#include "generator/passes/formats.h"

#include <string>

namespace rvn::generator
{

// A graph with all that its text needs.
struct ScheduledGraph {
    const Graph& graph;
    std::vector<NodeFormat> formats;
    ChosenSchedule chosen;
};

// C++ expressions of places in memory, such as "in[3]".
using Places = std::vector<std::string>;

Places placesIn(const std::string& array, const std::vector<int>& slots);

// Where the inputs of a graph are read and its outputs are written, which places are +0.0 without
// arithmetic, and whether the outputs are multiplied by S.
struct Body {
    Format format; // of the elements
    Places sources;
    Places destinations;
    Places zeros = {};
    bool isScaled = true;
    int indent = 4;
};

std::string bodyText(const Body& body, const ScheduledGraph& scheduled);

} // namespace rvn::generator
