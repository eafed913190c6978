#include "generator/order/choice.h"

#include "generator/order/cost.h"

namespace rvn::generator
{

namespace
{

struct Candidate {
    const char* name;
    Order (*order)(const Graph&);
};

// Of equals the first is taken.
constexpr Candidate candidates[] = {
    {"construction", constructionOrder},
    {"bisection, inputs", [](const Graph& graph) { return bisectionOrder(graph, Side::Inputs); }},
    {"bisection, outputs", [](const Graph& graph) { return bisectionOrder(graph, Side::Outputs); }},
};

} // namespace

ChosenSchedule chooseSchedule(const Graph& graph, OrderRule rule, Stores stores)
{
    ChosenSchedule best;
    for (const auto& [name, order] : candidates) {
        Schedule schedule = scheduleInOrder(graph, order(graph), stores);
        const int accesses = memoryAccesses(graph, schedule);
        if (best.order.empty() || accesses < best.memoryAccesses)
            best = {name, accesses, std::move(schedule)};
        if (rule == OrderRule::Construction)
            break;
    }
    return best;
}

} // namespace rvn::generator
