// The rules of which order of operations and which compiler options suit a kernel: tuning.txt. A
// line has a pattern of kernels' names, an order and options; the last that matches counts:
//
//     dft_complex_*_64fc  fewest-accesses  size,fewer-reads
//
// The order, `construction` or `fewest-accesses`, is the generator's; the options concern the build
// alone. Neither changes a bit of a result.
#pragma once

#include "generator/order/choice.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rvn::generator
{

struct TuningRule {
    std::string pattern; // as of file names in a shell
    OrderRule order = OrderRule::Construction;
    std::string options = "speed";
};

class Tuning
{
public:
    Tuning() = default; // every kernel in construction order

    // Throws std::runtime_error for a file that cannot be read or has a line of another form.
    explicit Tuning(const std::filesystem::path& file);

    const TuningRule& ruleFor(const std::string& kernel) const;

    // Throws std::runtime_error for a rule that none of these kernels follows.
    void requireUse(const std::vector<std::string>& kernels) const;

private:
    std::vector<TuningRule> rules_ = {{.pattern = "*"}};
};

} // namespace rvn::generator
