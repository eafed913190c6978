// Which order a kernel takes.
#pragma once

#include "generator/order/schedule.h"

#include <string>

namespace rvn::generator
{

enum class OrderRule : std::uint8_t {
    Construction,   // as the builder made it
    FewestAccesses, // of the candidate orders the one with the fewest accesses of memory
};

struct ChosenSchedule {
    std::string order; // its name
    int memoryAccesses = 0;
    Schedule schedule;
};

ChosenSchedule chooseSchedule(const Graph& graph, OrderRule rule,
                              Stores stores = Stores::AfterLoads);

} // namespace rvn::generator
