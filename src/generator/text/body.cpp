#include "generator/text/body.h"

#include "generator/text/literal.h"

namespace rvn::generator
{

namespace
{

// Names tell what a value is: x was loaded, v computed, and w is a binary64 value in a binary32
// kernel, still inside its expression.
class Text
{
public:
    Text(const Body& body, const ScheduledGraph& scheduled)
        : body_(body), graph_(scheduled.graph), formats_(scheduled.formats)
    {
    }

    std::string load(int node) const
    {
        return define(body_.format, node, body_.sources[graph_.nodes[node].input]) + "\n";
    }

    std::string compute(int node) const
    {
        const auto [computed, held] = formats_[node];
        std::string value = operation(node);
        if (computed != held)
            value = "static_cast<float>(" + value + ")";
        std::string line = define(held, node, value);
        if (graph_.nodes[node].op == Op::Multiply)
            line += " // " + decimal(graph_.nodes[node].constant);
        return line + "\n";
    }

    // The sign of a negated output is applied to the scaled value, as a subtraction from +0.0.
    std::string store(int output) const
    {
        const auto [node, negated] = graph_.outputs[output];
        const bool isWide = formats_[node].held != body_.format;
        const Format format = isWide ? Format::Binary64 : body_.format;
        std::string value = name(node);
        if (body_.isScaled)
            value = (isWide ? "static_cast<double>(S) * " : "S * ") + value;
        if (negated)
            value = zero(format) + " - " + value;
        if (isWide)
            value = "static_cast<float>(" + value + ")";
        return storeTo(body_.destinations[output], value);
    }

    std::string storeZero(const std::string& place) const
    {
        return storeTo(place, zero(body_.format));
    }

private:
    static std::string zero(Format format) { return format == Format::Binary64 ? "0.0" : "0.0f"; }

    std::string define(Format format, int node, const std::string& value) const
    {
        return indent() + "const " + typeName(format) + " " + name(node) + " = " + value + ";";
    }

    std::string storeTo(const std::string& place, const std::string& value) const
    {
        return indent() + place + " = " + value + ";\n";
    }

    std::string name(int node) const
    {
        const bool isWide = formats_[node].held != body_.format;
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
            return literal(node.constant, computed) + " * " + left;
        const char* const sign = node.op == Op::Product ? " * "
                                 : node.op == Op::Add   ? " + "
                                                        : " - ";
        return left + sign + operand(node.operand[1], computed);
    }

    std::string indent() const { return std::string(body_.indent, ' '); }

    const Body& body_;
    const Graph& graph_;
    const std::vector<NodeFormat>& formats_;
};

} // namespace

Places placesIn(const std::string& array, const std::vector<int>& slots)
{
    Places places;
    for (const int slot : slots)
        places.push_back(array + "[" + std::to_string(slot) + "]");
    return places;
}

std::string bodyText(const Body& body, const ScheduledGraph& scheduled)
{
    const Text text(body, scheduled);
    std::string source;
    for (const Step& step : scheduled.chosen.schedule) {
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

} // namespace rvn::generator
