#include "generator/text/function_text.h"
#include "generator/text/head.h"
#include "generator/text/literal.h"

namespace rvn::generator
{

std::string functionText(const std::vector<StraightLine>& functions, const Kernel& kernel,
                         const ScheduledGraphs& graphs)
{
    const std::string scalar = scalarType(kernel.format);
    std::string text = "#include \"frame/scalar.h\"\n#include \"rvngenmx.h\"\n";
    for (const auto& [exported, source, destination, zeros] : functions) {
        const Body body{.format = kernel.format,
                        .sources = placesIn("in", source),
                        .destinations = placesIn("out", destination),
                        .zeros = placesIn("out", zeros)};
        text += "\n" + headText(exported, kernel.format) + "    const " + scalar +
                "* const in = reinterpret_cast<const " + scalar + "*>(src);\n    " + scalar +
                "* const out = reinterpret_cast<" + scalar + "*>(dst);\n\n" +
                bodyText(body, graphs.front()) + "    return RvnStatusNoError;\n}\n";
    }
    return text;
}

} // namespace rvn::generator
