#include "generator/passes/finished.h"

#include "generator/passes/merge_products.h"
#include "generator/passes/turn_differences.h"

namespace rvn::generator
{

Graph finished(const GraphBuilder& builder, ValuesView outputs, NegatedDifferences negated)
{
    Graph graph = mergeProducts(builder.finish(outputs));
    return negated == NegatedDifferences::Turned ? turnDifferences(std::move(graph)) : graph;
}

} // namespace rvn::generator
