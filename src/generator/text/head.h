// The head of an exported function: argument checks, then the choice of S.
#pragma once

#include "generator/kernel.h"

namespace rvn::generator
{

std::string headText(const Exported& function, Format format);

} // namespace rvn::generator
