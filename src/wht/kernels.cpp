#include "wht/kernels.h"

#include "kernelgen/counts.h"
#include "kernelgen/emit.h"
#include "wht/builder.h"
#include "wht/passes.h"

#include <iomanip>
#include <sstream>

namespace rvn::wht
{

using namespace kernelgen;

namespace
{

Function function(int order, Format format)
{
    return {.name = "rvngWHT_" + std::to_string(order) + "_" + suffixOf(format),
            .elementType = elementTypeOf(format),
            .format = format,
            .scale = selfInverseScale(1 << order),
            .workMemory =
                order > highestStraightLineOrder ? WorkMemory::Used : WorkMemory::Ignored};
}

// The elements 0, stride, 2 stride, ... of a sub-transform.
std::vector<int> slots(int order, int stride)
{
    std::vector<int> slot;
    for (int i = 0; i < 1 << order; ++i)
        slot.push_back(i * stride);
    return slot;
}

// One loop over sub-transforms: `count` of them, from `source` to `destination`, one every `step`
// elements, each over elements `stride` apart.
struct Pass {
    std::string title;
    std::string source;
    std::string destination;
    int order;
    int count;
    int step;
    int stride;
    bool isScaled;
};

std::string emitPass(const Pass& pass, Format format, OrderRule rule, int indent)
{
    const std::string space(indent, ' ');
    const std::string offset = " + " + std::to_string(pass.step) + " * i;\n";
    const Graph graph = whtGraph(pass.order);
    const std::vector<int> slot = slots(pass.order, pass.stride);
    Body body = kernelBody(graph, format, slot, slot);
    body.isScaled = pass.isScaled;
    body.indent = indent + 4;
    return space + "// " + pass.title + "\n" + space + "for (int i = 0; i < " +
           std::to_string(pass.count) + "; ++i) {\n" + space + "    const " + scalarType(format) +
           "* const in = " + pass.source + offset + space + "    " + scalarType(format) +
           "* const out = " + pass.destination + offset +
           emitBody(body, graph, chooseSchedule(graph, rule).schedule) + space + "}\n";
}

Pass rows(const BufferedPlan& plan, const std::string& source, const std::string& destination)
{
    const int length = 1 << plan.rowOrder;
    return {"Rows of order " + std::to_string(plan.rowOrder) + ".",
            source,
            destination,
            plan.rowOrder,
            plan.blockLength() / length,
            length,
            1,
            false};
}

Pass columns(const BufferedPlan& plan, const std::string& source, const std::string& destination,
             bool isScaled)
{
    const int stride = 1 << plan.rowOrder;
    return {"Columns of order " + std::to_string(plan.columnOrder) + ".",
            source,
            destination,
            plan.columnOrder,
            stride,
            1,
            stride,
            isScaled};
}

Pass finalColumns(const BufferedPlan& plan, const std::string& source,
                  const std::string& destination)
{
    return {"Final columns of order " + std::to_string(plan.finalOrder) + ".",
            source,
            destination,
            plan.finalOrder,
            plan.blockLength(),
            1,
            plan.blockLength(),
            true};
}

std::string emitPasses(const BufferedPlan& plan, Format format, OrderRule rule)
{
    if (plan.finalOrder == 0)
        return emitPass(rows(plan, "source", "work"), format, rule, 4) +
               emitPass(columns(plan, "work", "destination", true), format, rule, 4);
    const std::string blockOffset = " + " + std::to_string(plan.blockLength()) + " * block";
    return "    // Blocks of " + std::to_string(plan.blockLength()) +
           " elements, each in the small tail before it goes to its place.\n" + "    " +
           scalarType(format) + "* const tail = work + " + std::to_string(1 << plan.order) + ";\n" +
           "    for (int block = 0; block < " + std::to_string(plan.blocks()) + "; ++block) {\n" +
           emitPass(rows(plan, "source" + blockOffset, "tail"), format, rule, 8) +
           emitPass(columns(plan, "tail", "work" + blockOffset, false), format, rule, 8) +
           "    }\n" + emitPass(finalColumns(plan, "work", "destination"), format, rule, 4);
}

std::string emitBuffered(const BufferedPlan& plan, Format format, OrderRule rule)
{
    const std::string scalar = scalarType(format);
    const int bytes = plan.workElements() * (format == Format::Binary64 ? 8 : 4);
    return emitHead(function(plan.order, format)) +
           "    void* const memory = buffer != nullptr ? buffer : rvnMalloc(" +
           std::to_string(bytes) + ");\n" + "    const " + scalar +
           "* const source = reinterpret_cast<const " + scalar + "*>(src);\n" + "    " + scalar +
           "* const work = static_cast<" + scalar + "*>(memory);\n" + "    " + scalar +
           "* const destination = reinterpret_cast<" + scalar + "*>(dst);\n\n" +
           emitPasses(plan, format, rule) +
           "    if (buffer == nullptr)\n        rvnFree(memory);\n"
           "    return RvnStatusNoError;\n}\n";
}

} // namespace

Graph whtGraph(int order)
{
    GraphBuilder builder;
    const Graph graph = builder.finish(walshHadamard(builder.loads(1 << order)));
    requireCounts("Walsh-Hadamard transform of 2^order points", order, {order * (1 << order), 0},
                  countOperations(graph));
    return graph;
}

GeneratedFile kernelFile(int order, Format format, const Tuning& tuning)
{
    const std::string name = "wht_" + std::to_string(order) + "_" + suffixOf(format);
    const OrderRule rule = tuning.orderOf(name, format);
    std::string text = "// Generated by rvnkernelgen: Walsh-Hadamard transform of order " +
                       std::to_string(order) + ".\n\n#include \"frame/scalar.h\"\n";
    if (order > highestStraightLineOrder) {
        text += "#include \"rvncore.h\"\n#include \"rvngenmx.h\"\n\n" +
                emitBuffered(bufferedPlan(order), format, rule);
    } else {
        const Graph graph = whtGraph(order);
        const std::vector<int> slot = slots(order, 1);
        const Body body = kernelBody(graph, format, slot, slot);
        text += "#include \"rvngenmx.h\"\n\n" +
                emitKernel(function(order, format), body, graph, chooseSchedule(graph, rule));
    }
    return {name + ".cpp", text};
}

std::string report()
{
    std::ostringstream text;
    text << "order  points  method                      additions  live\n";
    for (int order = lowestOrder; order <= highestStraightLineOrder; ++order) {
        const Graph graph = whtGraph(order);
        text << std::setw(5) << order << std::setw(8) << (1 << order) << "  straight line"
             << std::setw(24) << countOperations(graph).additions << std::setw(6)
             << peakLive(graph, chooseSchedule(graph, OrderRule::Construction).schedule) << "\n";
    }
    for (const BufferedPlan& plan : bufferedPlans) {
        text << std::setw(5) << plan.order << std::setw(8) << (1 << plan.order) << "  rows "
             << plan.rowOrder << ", columns " << plan.columnOrder;
        if (plan.finalOrder > 0)
            text << ", final " << plan.finalOrder;
        text << "\n";
    }
    return text.str();
}

} // namespace rvn::wht
