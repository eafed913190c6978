// A graph with all that its text needs: the format of each operation, and their order.
#pragma once

#include "generator/order/choice.h"
#include "generator/passes/formats.h"

namespace rvn::generator
{

struct ScheduledGraph {
    const Graph& graph;
    std::vector<NodeFormat> formats;
    ChosenSchedule chosen;
};

} // namespace rvn::generator
