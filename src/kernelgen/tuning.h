// The table of what was measured to suit each kernel on the compiler and a processor: tuning.txt,
// which tools/tune writes. A line names a kernel's file, an order and compiler options:
//
//   dft_complex_23_64fc  construction    size,fewer-reads
//
// The order, `construction` or `fewest-accesses`, is the generator's; the options concern the build
// alone. The names default_32 and default_64 stand for the kernels without a line.
#pragma once

#include "kernelgen/choice.h"
#include "kernelgen/precision.h"

#include <filesystem>
#include <map>

namespace rvn::kernelgen
{

class Tuning
{
public:
    Tuning() = default; // every kernel in construction order

    // Throws std::runtime_error for a file that cannot be read or has a line of another form.
    explicit Tuning(const std::filesystem::path& table);

    OrderRule orderOf(const std::string& kernel, Format format) const;

private:
    std::map<std::string, OrderRule> orders_;
};

} // namespace rvn::kernelgen
