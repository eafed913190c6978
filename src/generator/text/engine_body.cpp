#include "generator/text/function_text.h"
#include "generator/text/literal.h"

namespace rvn::generator
{

namespace
{

std::string statements(const std::vector<std::string>& texts, int indent)
{
    std::string all;
    for (const std::string& text : texts)
        all += std::string(indent, ' ') + text + ";\n";
    return all;
}

} // namespace

std::string prototypeText(const EngineBody& function, Format format)
{
    const std::string scalar = scalarType(format);
    const std::string restrict = function.mayOverlap ? "" : "__restrict ";
    const std::string head = "void " + function.name + "(";
    const std::string nextLine = ",\n" + std::string(head.size(), ' ');
    std::string text = head + scalar + "* " + restrict + "dst" + nextLine + "const " + scalar +
                       "* " + restrict + "src";
    for (const std::string& parameter : function.parameters)
        text += nextLine + parameter;
    return text + ")";
}

std::string functionText(const EngineBody& function, const Kernel& kernel,
                         const ScheduledGraphs& graphs)
{
    const bool isLoop = !function.advance.empty();
    const Body body{.format = kernel.format,
                    .sources = function.sources,
                    .destinations = function.destinations,
                    .isScaled = false,
                    .indent = isLoop ? 8 : 4};
    const std::string text = "#include \"dct4/fixed_bodies.h\"\n\n" +
                             prototypeText(function, kernel.format) + "\n{\n" +
                             statements(function.before, 4);
    if (!isLoop)
        return text + bodyText(body, graphs.front()) + "}\n";
    return text + "    for (std::int32_t i = 0; i < count; ++i) {\n" +
           statements(function.first, 8) + bodyText(body, graphs.front()) +
           statements(function.advance, 8) + "    }\n}\n";
}

} // namespace rvn::generator
