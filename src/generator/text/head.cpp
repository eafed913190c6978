#include "generator/text/head.h"

#include "generator/text/literal.h"

#include <array>
#include <sstream>

namespace rvn::generator
{

std::string headText(const Exported& function, Format format)
{
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
         << "    " << typeName(format) << " S;\n"
         << "    if (flag == RvnScaleNone)\n"
         << "        S = " << literal(none, format) << ";\n"
         << "    else if (flag == RvnScaleBySqrtN)\n"
         << "        S = " << literal(bySqrtN, format) << ";\n"
         << "    else if (flag == RvnScaleFwdByN)\n"
         << "        S = " << literal(fwdByN, format) << ";\n"
         << "    else if (flag == RvnScaleInvByN)\n"
         << "        S = " << literal(invByN, format) << ";\n"
         << "    else\n"
         << "        return RvnStatusFlagError;\n";
    return text.str();
}

} // namespace rvn::generator
