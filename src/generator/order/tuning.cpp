#include "generator/order/tuning.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

#include <fnmatch.h>

namespace rvn::generator
{

namespace
{

// One or more of the names that src/CMakeLists.txt knows, with commas between.
bool areOptions(const std::string& options)
{
    static const std::set<std::string> known = {"speed", "size", "fewer-reads", "plain-strides"};
    std::istringstream names(options);
    std::size_t count = 0;
    for (std::string name; std::getline(names, name, ','); ++count)
        if (!known.contains(name))
            return false;
    return count > 0;
}

} // namespace

Tuning::Tuning(const std::filesystem::path& file)
{
    std::ifstream lines(file);
    if (!lines || !std::filesystem::is_regular_file(file))
        throw std::runtime_error("cannot read " + file.string());
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::istringstream words(line);
        std::string pattern, order, options, more;
        words >> pattern >> order >> options;
        const bool isConstruction = order == "construction";
        if (words >> more || (!isConstruction && order != "fewest-accesses") ||
            !areOptions(options))
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
            throw std::runtime_error("no kernel follows the tuning rule " + rule.pattern +
                                     ": none has such a name, or later rules match them all");
}

} // namespace rvn::generator
