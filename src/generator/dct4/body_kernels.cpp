// The bodies of the DCT-IV engine as data: where each reads and writes, and the loop around it.

#include "generator/dct4/body_graphs.h"
#include "generator/families.h"
#include "generator/text/body.h"
#include "generator/text/function_text.h"
#include "generator/text/literal.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace rvn::generator
{

namespace
{

// "near[3 * stride]", "near[0]", ...: count places behind a pointer.
Places strided(const std::string& pointer, const std::string& stride, int count)
{
    Places places;
    for (int i = 0; i < count; ++i)
        places.push_back(pointer + (i == 0   ? "[0]"
                                    : i == 1 ? "[" + stride + "]"
                                             : "[" + std::to_string(i) + " * " + stride + "]"));
    return places;
}

Places joined(Places first, const Places& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// The places of t = -count to count - 1: near for t >= 0, far for t < 0.
Places mirrored(int count)
{
    const Places far = strided("far", "stride", count);
    return joined({far.rbegin(), far.rend()}, strided("near", "stride", count));
}

Places plain(const std::string& pointer, int count)
{
    return placesIn(pointer, plainSlots(count));
}

Places sourcesOf(const BodyPlan& plan)
{
    const int size = plan.size;
    switch (plan.kind) {
    case BodyKind::Direct:
        return plain("src", size);
    case BodyKind::Odd:
        return mirrored(size / 2);
    case BodyKind::TopRow:
        return joined(plain("src", 2 * size), plain("twiddles", 2 * size));
    case BodyKind::InnerRow: {
        const int pairs = plan.radixes[0] == 0 ? size - 1 : plan.radixes[0] - 1;
        const Places first = joined(plain("src", 2 * size), plain("first", 2 * pairs));
        return plan.radixes[0] == 0 ? first : joined(first, plain("second", 6 * plan.radixes[0]));
    }
    }
    return {};
}

Places destinationsOf(const BodyPlan& plan)
{
    const int size = plan.size;
    switch (plan.kind) {
    case BodyKind::Direct:
        return plain("dst", size);
    case BodyKind::Odd:
        return strided("dst", "rowStep", size);
    case BodyKind::TopRow:
        return mirrored(size);
    case BodyKind::InnerRow: {
        const Places near = strided("near", "stride", size / 2);
        const Places nearImaginary = strided("nearImaginary", "stride", size / 2);
        const Places far = strided("far", "stride", size / 2);
        const Places farImaginary = strided("farImaginary", "stride", size / 2);
        Places places;
        for (std::size_t s = 0; s < near.size(); ++s)
            places.insert(places.end(), {near[s], nearImaginary[s], far[s], farImaginary[s]});
        return places;
    }
    }
    return {};
}

// The C++ around a body: see EngineBody.
struct Frame {
    std::vector<std::string> parameters;
    std::vector<std::string> before;
    std::vector<std::string> first;
    std::vector<std::string> advance;
};

Frame frameOf(const BodyPlan& plan, const std::string& scalar)
{
    const std::string pointer = scalar + "* ";
    const std::string table = "const " + scalar + "* __restrict ";
    const std::string row = std::to_string(2 * plan.size);
    switch (plan.kind) {
    case BodyKind::Direct:
        return {};
    case BodyKind::Odd:
        return {{"const rvn::dct4::Sequences& sequences"},
                {"const auto [nearIndex, farIndex, step, stride, rowStep, count] = sequences",
                 "const " + pointer + "near = src + nearIndex",
                 "const " + pointer + "far = src + farIndex"},
                {},
                {"near += step", "far -= step", "++dst"}};
    case BodyKind::TopRow:
        return {{table + "twiddles", "const rvn::dct4::TopRows& rows"},
                {"const auto [farIndex, stride, count] = rows", pointer + "near = dst",
                 pointer + "far = dst + farIndex"},
                {},
                {"++near", "--far", "src += " + row, "twiddles += " + row}};
    case BodyKind::InnerRow: {
        const bool inStages = plan.radixes[0] != 0;
        const int pairs = inStages ? plan.radixes[0] - 1 : plan.size - 1;
        Frame frame{{table + "first", table + (inStages ? "second" : "/*second*/"),
                     "const rvn::dct4::InnerRows& rows"},
                    {"const auto [farIndex, stride, rowStep, count] = rows", pointer + "near = dst",
                     pointer + "far = dst + farIndex"},
                    {pointer + "const nearImaginary = near + rowStep",
                     pointer + "const farImaginary = far + rowStep"},
                    {"near += 2 * rowStep", "far -= 2 * rowStep", "src += " + row,
                     "first += " + std::to_string(2 * pairs)}};
        if (inStages)
            frame.advance.push_back("second += " + std::to_string(6 * plan.radixes[0]));
        return frame;
    }
    }
    return {};
}

// The row tells additions and subtractions apart; a negated output is subtracted from zero.
void requireSubtractions(const BodyPlan& plan, const Graph& graph)
{
    const auto found = std::ranges::count(graph.nodes, Op::Subtract, &Node::op) +
                       std::ranges::count(graph.outputs, true, &Output::negated);
    if (found != plan.subtractions)
        throw std::runtime_error("DCT-IV, " + nameOf(plan.kind) + " body of " +
                                 std::to_string(plan.size) + ": expected " +
                                 std::to_string(plan.subtractions) + " subtractions, found " +
                                 std::to_string(found));
}

std::string methodOf(const BodyPlan& plan)
{
    std::string radixes;
    for (const int radix : plan.radixes)
        if (radix != 0)
            radixes += (radixes.empty() ? "radix " : ", ") + std::to_string(radix);
    return radixes.empty() ? "whole" : radixes;
}

std::string functionName(const BodyPlan& plan, Format format)
{
    return "owngDCT4_" + suffixOf(format) + "_" + nameOf(plan.kind) + "_" +
           std::to_string(plan.size);
}

EngineBody bodyFunction(const BodyPlan& plan, Format format)
{
    const auto [parameters, before, first, advance] = frameOf(plan, scalarType(format));
    return {functionName(plan, format),
            sourcesOf(plan),
            destinationsOf(plan),
            plan.kind == BodyKind::Direct,
            parameters,
            before,
            first,
            advance};
}

// The bodies of a mode are the mode-th of their kinds, by size; mode 0 has none.
std::string tableText(Format format)
{
    std::array<std::vector<std::string>, 4> names; // by kind
    for (const BodyPlan& plan : bodyPlans)
        names[static_cast<std::size_t>(plan.kind)].push_back(functionName(plan, format));
    std::size_t modes = 0;
    for (const auto& kind : names)
        modes = std::max(modes, kind.size() + 1);
    std::string text = "inline constexpr std::array<FixedBodies<" + typeName(format) + ">, " +
                       std::to_string(modes) + "> fixedBodies_" + suffixOf(format) + " = {{\n";
    for (std::size_t mode = 0; mode < modes; ++mode) {
        text += "    {";
        for (const auto& kind : names)
            text += (mode == 0 || mode > kind.size() ? "nullptr" : kind[mode - 1]) +
                    (&kind == &names.back() ? "},\n" : ", ");
    }
    return text + "}};\n";
}

} // namespace

Kernel engineKernel(const BodyPlan& plan, Format format)
{
    const Graph graph = bodyGraph(plan);
    requireSubtractions(plan, graph);
    const std::string size = "_" + std::to_string(plan.size);
    return {.family = "dct4",
            .name = "dct4_" + nameOf(plan.kind) + size + "_" + suffixOf(format),
            .transform = "DCT-IV, " + nameOf(plan.kind) + " body of " + std::to_string(plan.size),
            .method = methodOf(plan),
            .format = format,
            .products = Products::InElements,
            .parts = {{graph, false}},
            .row = {.additions = plan.additions + plan.subtractions,
                    .multiplications = plan.multiplications,
                    .negatedOutputs = plan.negatedOutputs},
            .functions = bodyFunction(plan, format)};
}

GeneratedFile engineHeader()
{
    std::string text = "// Generated by rvnkernelgen: the fixed bodies of the DCT-IV engine.\n"
                       "#pragma once\n\n#include \"dct4/bodies.h\"\n\n#include <array>\n\n"
                       "extern \"C\" {\n";
    for (const Format format : {Format::Binary32, Format::Binary64})
        for (const BodyPlan& plan : bodyPlans)
            text += prototypeText(bodyFunction(plan, format), format) + ";\n";
    return {"dct4/fixed_bodies.h",
            text + "}\n\nnamespace rvn::dct4\n{\n\n" + tableText(Format::Binary32) + "\n" +
                tableText(Format::Binary64) + "\n} // namespace rvn::dct4\n"};
}

} // namespace rvn::generator
