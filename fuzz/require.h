// How a fuzz target reports: what was promised, about what, and then an abort, upon which libFuzzer
// keeps the input.
#pragma once

#include <cstdlib>
#include <iostream>

namespace rvn::fuzz
{

template <typename... Parts> void require(bool holds, const Parts&... parts)
{
    if (holds)
        return;
    std::cerr << "broken promise: ";
    (std::cerr << ... << parts) << std::endl;
    std::abort();
}

} // namespace rvn::fuzz
