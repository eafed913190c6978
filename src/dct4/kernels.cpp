#include "dct4/kernels.h"

#include "dct4/builder.h"
#include "kernelgen/counts.h"
#include "kernelgen/emit.h"

#include <iomanip>
#include <sstream>

namespace rvn::dct4
{

using namespace kernelgen;

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

// The text around a body: the parameters behind dst and src, what precedes the loop, what stands
// first in it, and how it goes on.
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

std::string statements(const std::vector<std::string>& texts, int indent)
{
    std::string all;
    for (const std::string& text : texts)
        all += std::string(indent, ' ') + text + ";\n";
    return all;
}

std::string functionName(const BodyPlan& plan, Format format)
{
    return "owngDCT4_" + suffixOf(format) + "_" + nameOf(plan.kind) + "_" +
           std::to_string(plan.size);
}

ChosenSchedule scheduleOf(const BodyPlan& plan, const Graph& graph, OrderRule rule)
{
    return chooseSchedule(graph, rule,
                          plan.kind == BodyKind::Direct ? Stores::AfterLoads : Stores::AsReady);
}

std::string emitFunction(const BodyPlan& plan, Format format, OrderRule rule)
{
    const std::string scalar = scalarType(format);
    const std::string restrict = plan.kind == BodyKind::Direct ? "" : "__restrict ";
    const Graph graph = bodyGraph(plan);
    const Frame frame = frameOf(plan, scalar);
    const bool isLoop = !frame.advance.empty();
    const Body body{.format = format,
                    .formats = elementFormats(graph, format),
                    .sources = sourcesOf(plan),
                    .destinations = destinationsOf(plan),
                    .isScaled = false,
                    .indent = isLoop ? 8 : 4};
    const std::string operations = emitBody(body, graph, scheduleOf(plan, graph, rule).schedule);

    const std::string head = "void " + functionName(plan, format) + "(";
    std::string text = head + scalar + "* " + restrict + "dst";
    const std::string nextLine = ",\n" + std::string(head.size(), ' ');
    text += nextLine + "const " + scalar + "* " + restrict + "src";
    for (const std::string& parameter : frame.parameters)
        text += nextLine + parameter;
    text += ")\n{\n" + statements(frame.before, 4);
    if (!isLoop)
        return text + operations + "}\n";
    return text + "    for (std::int32_t i = 0; i < count; ++i) {\n" + statements(frame.first, 8) +
           operations + statements(frame.advance, 8) + "    }\n}\n";
}

} // namespace

GeneratedFile bodyFile(const BodyPlan& plan, Format format, const Tuning& tuning)
{
    const std::string name =
        "dct4_" + nameOf(plan.kind) + "_" + std::to_string(plan.size) + "_" + suffixOf(format);
    std::ostringstream text;
    text << "// Generated by rvnkernelgen: " << nameOf(plan.kind) << " body of size " << plan.size
         << " of the DCT-IV.\n\n"
         << "#include \"dct4/bodies.h\"\n\n"
         << "// " << plan.multiplications << " multiplications, " << plan.additions
         << " additions, " << plan.subtractions << " subtractions.\n"
         << emitFunction(plan, format, tuning.orderOf(name, format));
    return {name + ".cpp", text.str()};
}

std::string report()
{
    std::ostringstream text;
    text << "body         size  multiplications  additions  subtractions  live  accesses  order\n";
    for (const BodyPlan& plan : bodyPlans) {
        const Graph graph = bodyGraph(plan);
        const ChosenSchedule best = scheduleOf(plan, graph, OrderRule::FewestAccesses);
        text << std::left << std::setw(13) << nameOf(plan.kind) << std::right << std::setw(4)
             << plan.size << std::setw(17) << plan.multiplications << std::setw(11)
             << plan.additions << std::setw(14) << plan.subtractions << std::setw(6)
             << peakLive(graph, best.schedule) << std::setw(10) << best.memoryAccesses << "  "
             << best.order << "\n";
    }
    text << bodyPlans.size() << " bodies of the DCT-IV: the graphs have the table's counts\n";
    return text.str();
}

} // namespace rvn::dct4
