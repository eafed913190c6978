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

Places joined(const std::vector<Places>& lists)
{
    Places all;
    for (const Places& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

// The places of t = -count to count - 1: near for t >= 0, far for t < 0.
Places mirrored(int count)
{
    const Places far = strided("far", "stride", count);
    return joined({{far.rbegin(), far.rend()}, strided("near", "stride", count)});
}

Places plain(const std::string& pointer, int count)
{
    return placesIn(pointer, plainSlots(count));
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
    const int size = plan.size;
    const int R = plan.radixes[0];
    const std::string row = std::to_string(2 * size);
    const std::string pointer = scalarType(format) + "* ";
    const std::string table = "const " + pointer + "__restrict ";
    const std::vector<std::string> ends = {pointer + "near = dst",
                                           pointer + "far = dst + farIndex"};
    EngineBody body{.name = functionName(plan, format)};
    switch (plan.kind) {
    case BodyKind::Direct:
        body.mayOverlap = true;
        body.sources = plain("src", size);
        body.destinations = plain("dst", size);
        break;
    case BodyKind::Odd:
        body.sources = mirrored(size / 2);
        body.destinations = strided("dst", "rowStep", size);
        body.parameters = {"const rvn::dct4::Sequences& sequences"};
        body.before = {"const auto [nearIndex, farIndex, step, stride, rowStep, count] = sequences",
                       "const " + pointer + "near = src + nearIndex",
                       "const " + pointer + "far = src + farIndex"};
        body.advance = {"near += step", "far -= step", "++dst"};
        break;
    case BodyKind::TopRow:
        body.sources = joined({plain("src", 2 * size), plain("twiddles", 2 * size)});
        body.destinations = mirrored(size);
        body.parameters = {table + "twiddles", "const rvn::dct4::TopRows& rows"};
        body.before = joined({{"const auto [farIndex, stride, count] = rows"}, ends});
        body.advance = {"++near", "--far", "src += " + row, "twiddles += " + row};
        break;
    case BodyKind::InnerRow:
        const int firstFactors = 2 * (R == 0 ? size - 1 : R - 1);
        body.sources =
            joined({plain("src", 2 * size), plain("first", firstFactors), plain("second", 6 * R)});
        for (int s = 0; s < size / 2; ++s)
            for (const char* const part : {"near", "nearImaginary", "far", "farImaginary"})
                body.destinations.push_back(part + strided("", "stride", s + 1).back());
        body.parameters = {table + "first", table + (R == 0 ? "/*second*/" : "second"),
                           "const rvn::dct4::InnerRows& rows"};
        body.before = joined({{"const auto [farIndex, stride, rowStep, count] = rows"}, ends});
        body.first = {pointer + "const nearImaginary = near + rowStep",
                      pointer + "const farImaginary = far + rowStep"};
        body.advance = {"near += 2 * rowStep", "far -= 2 * rowStep", "src += " + row,
                        "first += " + std::to_string(firstFactors)};
        if (R != 0)
            body.advance.push_back("second += " + std::to_string(6 * R));
        break;
    }
    return body;
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
            .parts = {{.graph = graph, .isScaled = false}},
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
