#include "kernelgen/emit.h"

#include "kernelgen/counts.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <sstream>
#include <stdexcept>

namespace rvn::kernelgen
{

namespace
{

// Hexadecimal, so that no decimal parser has a say.
std::string literal(double value)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%a", value);
    return text.data();
}

std::string literalOf(double value, Format format)
{
    return format == Format::Binary64 ? literal(value) : literal(static_cast<float>(value)) + "f";
}

const char* typeName(Format format)
{
    return format == Format::Binary64 ? "double" : "float";
}

// Names tell what a value is: x was loaded, v computed, and w is a binary64 value in a binary32
// kernel, still inside its expression.
class Text
{
public:
    Text(const Body& body, const Graph& graph) : body_(body), graph_(graph) {}

    std::string load(int node) const
    {
        return indent() + "const " + typeName(body_.format) + " " + name(node) + " = " +
               body_.sources[graph_.nodes[node].input] + ";\n";
    }

    std::string compute(int node) const
    {
        const auto [computed, held] = body_.formats[node];
        std::string value = operation(node);
        if (computed != held)
            value = "static_cast<float>(" + value + ")";
        return indent() + "const " + typeName(held) + " " + name(node) + " = " + value + ";\n";
    }

    // The sign of a negated output is applied to the scaled value, as a subtraction from +0.0.
    std::string store(int output) const
    {
        const auto [node, negated] = graph_.outputs[output];
        const bool isWide = body_.formats[node].held != body_.format;
        std::string value = name(node);
        if (body_.isScaled)
            value = (isWide ? "static_cast<double>(S) * " : "S * ") + value;
        if (negated)
            value = (isWide || body_.format == Format::Binary64 ? "0.0 - " : "0.0f - ") + value;
        if (isWide)
            value = "static_cast<float>(" + value + ")";
        return storeTo(body_.destinations[output], value);
    }

    std::string storeZero(const std::string& place) const
    {
        return storeTo(place, body_.format == Format::Binary64 ? "0.0" : "0.0f");
    }

private:
    std::string storeTo(const std::string& place, const std::string& value) const
    {
        return indent() + place + " = " + value + ";\n";
    }

    std::string name(int node) const
    {
        const bool isWide = body_.formats[node].held != body_.format;
        const char* prefix = graph_.nodes[node].op == Op::Load ? "x" : isWide ? "w" : "v";
        return std::string(prefix) + std::to_string(node);
    }

    std::string operand(int node, Format computed) const
    {
        return body_.formats[node].held == computed ? name(node)
                                                    : "static_cast<double>(" + name(node) + ")";
    }

    std::string operation(int index) const
    {
        const Node& node = graph_.nodes[index];
        const Format computed = body_.formats[index].computed;
        const std::string left = operand(node.operand[0], computed);
        if (node.op == Op::Multiply)
            return literalOf(node.constant, computed) + " * " + left;
        const char* const sign = node.op == Op::Product ? " * "
                                 : node.op == Op::Add   ? " + "
                                                        : " - ";
        return left + sign + operand(node.operand[1], computed);
    }

    std::string indent() const { return std::string(body_.indent, ' '); }

    const Body& body_;
    const Graph& graph_;
};

std::string statistics(const Graph& graph, const ChosenSchedule& chosen, const Body& body)
{
    const Conversions conversions = countConversions(graph, body.formats);
    const Counts counts = countOperations(graph);
    std::ostringstream text;
    text << "// " << counts.additions << " additions, " << counts.multiplications
         << " multiplications by constants, " << graph.outputs.size()
         << " by S; order: " << chosen.order << ", at most " << peakLive(graph, chosen.schedule)
         << " values live, " << chosen.memoryAccesses << " accesses of memory";
    if (conversions.widenings > 0)
        text << "; " << conversions.widenings << " widenings, " << conversions.roundings
             << " roundings";
    text << ".\n";
    return text.str();
}

} // namespace

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

std::string suffixOf(Format format)
{
    return format == Format::Binary64 ? "64f" : "32f";
}

std::string elementTypeOf(Format format)
{
    return typeName(format);
}

std::string scalarType(Format format)
{
    return "rvn::Scalar" + suffixOf(format);
}

std::vector<int> plainSlots(int count)
{
    std::vector<int> slots(count);
    std::iota(slots.begin(), slots.end(), 0);
    return slots;
}

std::string emitHead(const Function& function)
{
    const auto factor = [&](double value) { return literalOf(value, function.format); };
    const auto [none, bySqrtN, fwdByN, invByN] = function.scale;
    static constexpr std::array<const char*, 3> bufferParameter = {"", ", void*", ", void* buffer"};
    std::ostringstream text;
    text << "RvnStatus " << function.name << "(const " << function.elementType << "* src, "
         << function.elementType << "* dst, RvnScaleFlag flag"
         << bufferParameter[static_cast<std::size_t>(function.workMemory)] << ")\n"
         << "{\n"
         << "    if (src == nullptr)\n"
         << "        return RvnStatusNullPointer;\n"
         << "    if (dst == nullptr)\n"
         << "        return RvnStatusNullPointer;\n"
         << "    " << typeName(function.format) << " S;\n"
         << "    if (flag == RvnScaleNone)\n"
         << "        S = " << factor(none) << ";\n"
         << "    else if (flag == RvnScaleBySqrtN)\n"
         << "        S = " << factor(bySqrtN) << ";\n"
         << "    else if (flag == RvnScaleFwdByN)\n"
         << "        S = " << factor(fwdByN) << ";\n"
         << "    else if (flag == RvnScaleInvByN)\n"
         << "        S = " << factor(invByN) << ";\n"
         << "    else\n"
         << "        return RvnStatusFlagError;\n";
    return text.str();
}

Places placesIn(const std::string& array, const std::vector<int>& slots)
{
    Places places;
    for (const int slot : slots)
        places.push_back(array + "[" + std::to_string(slot) + "]");
    return places;
}

Body kernelBody(const Graph& graph, Format format, const std::vector<int>& sourceSlots,
                const std::vector<int>& destinationSlots, const std::vector<int>& zeroSlots)
{
    return {.format = format,
            .formats = assignFormats(graph, format),
            .sources = placesIn("in", sourceSlots),
            .destinations = placesIn("out", destinationSlots),
            .zeros = placesIn("out", zeroSlots)};
}

std::string emitBody(const Body& body, const Graph& graph, const Schedule& schedule)
{
    const Text text(body, graph);
    std::string source;
    for (const Step& step : schedule) {
        switch (step.kind) {
        case Step::Kind::Load:
            source += text.load(step.index);
            break;
        case Step::Kind::Compute:
            source += text.compute(step.index);
            break;
        case Step::Kind::Store:
            source += text.store(step.index);
            break;
        }
    }
    for (const std::string& place : body.zeros)
        source += text.storeZero(place);
    return source;
}

std::string emitKernel(const Function& function, const Body& body, const Graph& graph,
                       const ChosenSchedule& chosen)
{
    const std::string scalar = scalarType(function.format);
    return statistics(graph, chosen, body) + emitHead(function) + "    const " + scalar +
           "* const in = reinterpret_cast<const " + scalar + "*>(src);\n" + "    " + scalar +
           "* const out = reinterpret_cast<" + scalar + "*>(dst);\n\n" +
           emitBody(body, graph, chosen.schedule) + "    return RvnStatusNoError;\n}\n";
}

} // namespace rvn::kernelgen
