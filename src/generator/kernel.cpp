#include "generator/kernel.h"

#include <cmath>
#include <numeric>
#include <stdexcept>

namespace rvn::generator
{

ScaleFactors forwardScale(int length)
{
    // Two roundings, the root's and the quotient's: callers rely on this value.
    return {1.0, 1.0 / std::sqrt(static_cast<double>(length)), 1.0 / length, 1.0};
}

ScaleFactors inverseScale(int length)
{
    const auto [none, bySqrtN, byN, one] = forwardScale(length);
    return {none, bySqrtN, one, byN};
}

ScaleFactors selfInverseScale(int length)
{
    const auto [none, bySqrtN, byN, one] = forwardScale(length);
    return {none, bySqrtN, byN, byN};
}

std::vector<std::string> functionsOf(const Kernel& kernel)
{
    if (const auto* const straight = std::get_if<std::vector<StraightLine>>(&kernel.functions)) {
        std::vector<std::string> names;
        for (const StraightLine& function : *straight)
            names.push_back(function.exported.name);
        return names;
    }
    if (const auto* const buffered = std::get_if<Buffered>(&kernel.functions))
        return {buffered->exported.name};
    return {std::get<EngineBody>(kernel.functions).name};
}

void requireRow(const Kernel& kernel)
{
    Tally found;
    for (const Part& part : kernel.parts)
        found = found + part.runs * tally(part.graph, part.isScaled);
    const struct {
        int Tally::*count;
        const char* name;
    } counts[] = {{&Tally::additions, "additions"},
                  {&Tally::multiplications, "multiplications"},
                  {&Tally::doublings, "doublings"},
                  {&Tally::negatedOutputs, "negated outputs"},
                  {&Tally::scaledInBinary64, "outputs scaled in binary64"}};
    for (const auto& [count, name] : counts)
        if (kernel.row.*count != found.*count)
            throw std::runtime_error(kernel.transform + ", " + kernel.method + ": expected " +
                                     std::to_string(kernel.row.*count) + " " + name + ", found " +
                                     std::to_string(found.*count));
}

std::string suffixOf(Format format)
{
    return format == Format::Binary64 ? "64f" : "32f";
}

std::string elementTypeOf(Format format)
{
    return format == Format::Binary64 ? "double" : "float";
}

std::vector<int> plainSlots(int count)
{
    std::vector<int> slots(count);
    std::iota(slots.begin(), slots.end(), 0);
    return slots;
}

} // namespace rvn::generator
