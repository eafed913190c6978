// Numbers and types as C++.
#pragma once

#include "generator/passes/formats.h"

#include <string>

namespace rvn::generator
{

// Hexadecimal, so that no decimal parser has a say; rounded to the format.
std::string literal(double value, Format format);

// The shortest decimal that names the same binary64 value, for people.
std::string decimal(double value);

std::string typeName(Format format);   // of values
std::string scalarType(Format format); // through which arrays are read and written

} // namespace rvn::generator
