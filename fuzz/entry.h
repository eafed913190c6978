// Where libFuzzer enters: a target defines fuzz<Real>, and the input chooses the precision.
#pragma once

#include <cstddef>
#include <cstdint>

#include <fuzzer/FuzzedDataProvider.h>

namespace rvn::fuzz
{

namespace
{

template <typename Real> void fuzz(FuzzedDataProvider& input);

} // namespace

} // namespace rvn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    if (input.ConsumeBool())
        rvn::fuzz::fuzz<float>(input);
    else
        rvn::fuzz::fuzz<double>(input);
    return 0;
}
