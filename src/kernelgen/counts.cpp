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

[[noreturn]] void refuse(std::string_view family, int length, const std::string& expected,
                         const std::string& found)
{
    throw std::runtime_error(std::string(family) + ", length " + std::to_string(length) +
                             ": expected " + expected + ", found " + found);
}

} // namespace

Counts countOperations(const Graph& graph)
{
    Counts counts;
    for (const Node& node : graph.nodes) {
        counts.additions += node.op == Op::Add || node.op == Op::Subtract;
        counts.multiplications += node.op == Op::Multiply || node.op == Op::Product;
    }
    return counts;
}

void requireCounts(std::string_view family, int length, Counts expected, Counts found)
{
    if (expected != found)
        refuse(family, length, inWords(expected), inWords(found));
}

void requireCount(std::string_view family, int length, std::string_view what, int expected,
                  int found)
{
    const std::string unit = " " + std::string(what);
    if (expected != found)
        refuse(family, length, std::to_string(expected) + unit, std::to_string(found) + unit);
}

} // namespace rvn::kernelgen
