#include "generator/text/literal.h"

#include "generator/kernel.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace rvn::generator
{

std::string literal(double value, Format format)
{
    std::array<char, 40> text{};
    const double rounded = format == Format::Binary64 ? value : static_cast<float>(value);
    std::snprintf(text.data(), text.size(), format == Format::Binary64 ? "%a" : "%af", rounded);
    return text.data();
}

std::string decimal(double value)
{
    std::array<char, 40> text{};
    const auto [end, error] = std::to_chars(text.begin(), text.end(), value);
    return {text.begin(), end};
}

std::string typeName(Format format)
{
    return format == Format::Binary64 ? "double" : "float";
}

std::string scalarType(Format format)
{
    return "rvn::Scalar" + suffixOf(format);
}

} // namespace rvn::generator
