// The order of a kernel's text: operations in a given order, each input loaded right before its
// first use. Where what is read and what is written may overlap, as src and dst of a kernel, stores
// wait until the last load; then, and otherwise from the start, every output is stored as soon as
// it exists.
#pragma once

#include "generator/order/orders.h"

namespace rvn::generator
{

struct Step {
    enum class Kind : std::uint8_t { Load, Compute, Store };
    Kind kind;
    int index; // of a node, or of an output for a store
};

using Schedule = std::vector<Step>;

enum class Stores : std::uint8_t { AfterLoads, AsReady };

Schedule scheduleInOrder(const Graph& graph, const Order& order, Stores stores);

// The most values that are live at once.
int peakLive(const Graph& graph, const Schedule& schedule);

} // namespace rvn::generator
