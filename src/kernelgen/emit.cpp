#include "kernelgen/emit.h"

#include "kernelgen/counts.h"

#include <array>
#include <cmath>
#include <cstdio>
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

std::string scaleLiteral(double value, Format format)
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
    Text(const Kernel& kernel, const Graph& graph)
        : kernel_(kernel), graph_(graph), formats_(assignFormats(graph, kernel.format))
    {
    }

    std::string load(int node) const
    {
        return "    const " + elementName() + " " + name(node) + " = in[" +
               std::to_string(kernel_.sourceSlot[graph_.nodes[node].input]) + "];\n";
    }

    std::string compute(int node) const
    {
        const auto [computed, held] = formats_[node];
        std::string value = operation(node);
        if (computed != held)
            value = "static_cast<float>(" + value + ")";
        return std::string("    const ") + typeName(held) + " " + name(node) + " = " + value +
               ";\n";
    }

    std::string store(int output) const
    {
        const auto [node, negated] = graph_.outputs[output];
        if (negated)
            throw std::logic_error(kernel_.name + ": an output has the opposite sign");
        return "    out[" + std::to_string(kernel_.destinationSlot[output]) + "] = S * " +
               name(node) + ";\n";
    }

    std::string elementName() const { return typeName(kernel_.format); }

    Conversions conversions() const { return countConversions(graph_, formats_); }

private:
    std::string name(int node) const
    {
        const bool isWide = formats_[node].held != kernel_.format;
        const char* prefix = graph_.nodes[node].op == Op::Load ? "x" : isWide ? "w" : "v";
        return std::string(prefix) + std::to_string(node);
    }

    std::string operand(int node, Format computed) const
    {
        return formats_[node].held == computed ? name(node)
                                               : "static_cast<double>(" + name(node) + ")";
    }

    std::string operation(int index) const
    {
        const Node& node = graph_.nodes[index];
        const Format computed = formats_[index].computed;
        const std::string left = operand(node.operand[0], computed);
        if (node.op == Op::Multiply)
            return literal(node.constant) + " * " + left;
        return left + (node.op == Op::Add ? " + " : " - ") + operand(node.operand[1], computed);
    }

    const Kernel& kernel_;
    const Graph& graph_;
    std::vector<NodeFormat> formats_;
};

std::string statistics(const Graph& graph, const Schedule& schedule, Conversions conversions)
{
    const Counts counts = countOperations(graph);
    std::ostringstream text;
    text << "// " << counts.additions << " additions, " << counts.multiplications
         << " multiplications by constants, " << graph.outputs.size() << " by S; at most "
         << peakLive(graph, schedule) << " values live";
    if (conversions.widenings > 0)
        text << "; " << conversions.widenings << " widenings, " << conversions.roundings
             << " roundings";
    text << ".\n";
    return text.str();
}

std::string prologue(const Kernel& kernel)
{
    const std::string type = typeName(kernel.format);
    const std::string suffix = kernel.format == Format::Binary64 ? "64f" : "32f";
    const auto factor = [&](double value) { return scaleLiteral(value, kernel.format); };
    const auto [none, bySqrtN, fwdByN, invByN] = kernel.scale;
    std::ostringstream text;
    text << "RvnStatus " << kernel.name << "(const " << kernel.elementType << "* src, "
         << kernel.elementType << "* dst, RvnScaleFlag flag)\n"
         << "{\n"
         << "    if (src == nullptr)\n"
         << "        return RvnStatusNullPointer;\n"
         << "    if (dst == nullptr)\n"
         << "        return RvnStatusNullPointer;\n"
         << "    " << type << " S;\n"
         << "    if (flag == RvnScaleNone)\n"
         << "        S = " << factor(none) << ";\n"
         << "    else if (flag == RvnScaleBySqrtN)\n"
         << "        S = " << factor(bySqrtN) << ";\n"
         << "    else if (flag == RvnScaleFwdByN)\n"
         << "        S = " << factor(fwdByN) << ";\n"
         << "    else if (flag == RvnScaleInvByN)\n"
         << "        S = " << factor(invByN) << ";\n"
         << "    else\n"
         << "        return RvnStatusFlagError;\n"
         << "    const rvn::Scalar" << suffix << "* const in = "
         << "reinterpret_cast<const rvn::Scalar" << suffix << "*>(src);\n"
         << "    rvn::Scalar" << suffix << "* const out = "
         << "reinterpret_cast<rvn::Scalar" << suffix << "*>(dst);\n\n";
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
    return {1.0, 1.0 / std::sqrt(static_cast<double>(length)), 1.0, 1.0 / length};
}

std::string emitKernel(const Kernel& kernel, const Graph& graph, const Schedule& schedule)
{
    const Text text(kernel, graph);
    std::string source = statistics(graph, schedule, text.conversions()) + prologue(kernel);
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
    return source + "    return RvnStatusNoError;\n}\n";
}

} // namespace rvn::kernelgen
