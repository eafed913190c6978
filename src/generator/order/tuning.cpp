#include "generator/order/tuning.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include <fnmatch.h>

namespace rvn::generator
{

Tuning::Tuning(const std::filesystem::path& file)
{
    std::ifstream lines(file);
    if (!lines)
        throw std::runtime_error("cannot read " + file.string());
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::istringstream words(line);
        std::string pattern, order, options, more;
        words >> pattern >> order >> options;
        const bool isConstruction = order == "construction";
        if (options.empty() || words >> more || (!isConstruction && order != "fewest-accesses"))
            throw std::runtime_error(file.string() + ": refused line: " + line);
        rules_.push_back({pattern,
                          isConstruction ? OrderRule::Construction : OrderRule::FewestAccesses,
                          options});
    }
}

const TuningRule& Tuning::ruleFor(const std::string& kernel) const
{
    return *std::find_if(rules_.rbegin(), rules_.rend(), [&](const TuningRule& rule) {
        return fnmatch(rule.pattern.c_str(), kernel.c_str(), 0) == 0;
    });
}

void Tuning::requireUse(const std::vector<std::string>& kernels) const
{
    std::set<const TuningRule*> used = {&rules_.front()}; // of what no line speaks of
    for (const std::string& kernel : kernels)
        used.insert(&ruleFor(kernel));
    for (const TuningRule& rule : rules_)
        if (!used.contains(&rule))
            throw std::runtime_error("no kernel follows the tuning rule " + rule.pattern);
}

} // namespace rvn::generator
