#include "generator/text/function_text.h"
#include "generator/text/head.h"
#include "generator/text/literal.h"

#include <array>

namespace rvn::generator
{

namespace
{

std::vector<int> strided(int count, int stride)
{
    std::vector<int> slots = plainSlots(count);
    for (int& slot : slots)
        slot *= stride;
    return slots;
}

// "work + 256 * block", or "tail", which every block uses in turn.
std::string placeOf(Memory memory, const Pass& pass, const Buffered& function)
{
    static constexpr std::array<const char*, 4> names = {"source", "work", "tail", "destination"};
    const std::string name = names[static_cast<std::size_t>(memory)];
    if (!pass.isInBlock || memory == Memory::Tail)
        return name;
    return name + " + " + std::to_string(function.blockLength) + " * block";
}

std::string passText(const Pass& pass, const Buffered& function, const Kernel& kernel,
                     const ScheduledGraphs& graphs)
{
    const int indent = pass.isInBlock ? 8 : 4;
    const std::string space(indent, ' ');
    const std::string scalar = scalarType(kernel.format);
    const std::string offset = " + " + std::to_string(pass.step) + " * i;\n";
    const Part& part = kernel.parts[pass.part];
    const std::vector<int> slots =
        strided(static_cast<int>(part.graph.outputs.size()), pass.stride);
    const Body body{.format = kernel.format,
                    .sources = placesIn("in", slots),
                    .destinations = placesIn("out", slots),
                    .isScaled = part.isScaled,
                    .indent = indent + 4};
    return space + "// " + pass.title + "\n" + space + "for (int i = 0; i < " +
           std::to_string(pass.count) + "; ++i) {\n" + space + "    const " + scalar +
           "* const in = " + placeOf(pass.from, pass, function) + offset + space + "    " + scalar +
           "* const out = " + placeOf(pass.to, pass, function) + offset +
           bodyText(body, graphs[pass.part]) + space + "}\n";
}

std::string passesText(const Buffered& function, const Kernel& kernel,
                       const ScheduledGraphs& graphs)
{
    std::string inBlock;
    std::string behind;
    for (const Pass& pass : function.passes)
        (pass.isInBlock ? inBlock : behind) += passText(pass, function, kernel, graphs);
    if (inBlock.empty())
        return behind;
    return "    // Blocks of " + std::to_string(function.blockLength) +
           " elements, each in the small tail before it goes to its place.\n    " +
           scalarType(kernel.format) + "* const tail = work + " + std::to_string(function.length) +
           ";\n    for (int block = 0; block < " + std::to_string(function.blocks) +
           "; ++block) {\n" + inBlock + "    }\n" + behind;
}

} // namespace

std::string functionText(const Buffered& function, const Kernel& kernel,
                         const ScheduledGraphs& graphs)
{
    const std::string scalar = scalarType(kernel.format);
    const int bytes = function.workElements * (kernel.format == Format::Binary64 ? 8 : 4);
    return "#include \"frame/scalar.h\"\n#include \"rvncore.h\"\n#include \"rvngenmx.h\"\n\n" +
           headText(function.exported, kernel.format) +
           "    void* const memory = buffer != nullptr ? buffer : rvnMalloc(" +
           std::to_string(bytes) + ");\n    const " + scalar +
           "* const source = reinterpret_cast<const " + scalar + "*>(src);\n    " + scalar +
           "* const work = static_cast<" + scalar + "*>(memory);\n    " + scalar +
           "* const destination = reinterpret_cast<" + scalar + "*>(dst);\n\n" +
           passesText(function, kernel, graphs) +
           "    if (buffer == nullptr)\n        rvnFree(memory);\n"
           "    return RvnStatusNoError;\n}\n";
}

} // namespace rvn::generator
