#include "kernelgen/tuning.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace rvn::kernelgen
{

Tuning::Tuning(const std::filesystem::path& table)
{
    std::ifstream file(table);
    if (!file)
        throw std::runtime_error("cannot read " + table.string());
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::istringstream words(line);
        std::string kernel, order, options, more;
        words >> kernel >> order >> options;
        const bool isConstruction = order == "construction";
        if (options.empty() || words >> more || (!isConstruction && order != "fewest-accesses") ||
            !orders_
                 .try_emplace(kernel,
                              isConstruction ? OrderRule::Construction : OrderRule::FewestAccesses)
                 .second)
            throw std::runtime_error(table.string() + ": refused line: " + line);
    }
}

OrderRule Tuning::orderOf(const std::string& kernel, Format format) const
{
    for (const std::string& name :
         {kernel, std::string(format == Format::Binary64 ? "default_64" : "default_32")})
        if (const auto found = orders_.find(name); found != orders_.end())
            return found->second;
    return OrderRule::Construction;
}

} // namespace rvn::kernelgen
