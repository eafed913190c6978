#include "kernelgen/counts.h"

#include <stdexcept>
#include <string>

namespace rvn::kernelgen
{

namespace
{

std::string inWords(Counts counts)
{
    return std::to_string(counts.additions) + " additions and " +
           std::to_string(counts.multiplications) + " multiplications";
}

} // namespace

Counts countOperations(const Graph& graph)
{
    Counts counts;
    for (const Node& node : graph.nodes) {
        counts.additions += node.op == Op::Add || node.op == Op::Subtract;
        counts.multiplications += node.op == Op::Multiply;
    }
    return counts;
}

void requireCounts(std::string_view family, int length, Counts expected, Counts found)
{
    if (expected != found)
        throw std::runtime_error(std::string(family) + ", length " + std::to_string(length) +
                                 ": expected " + inWords(expected) + ", found " + inWords(found));
}

} // namespace rvn::kernelgen
