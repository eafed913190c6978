// The files that are generated for the fixed bodies: each body in its loop, as one function.
#pragma once

#include "dct4/plans.h"
#include "kernelgen/files.h"
#include "kernelgen/tuning.h"

#include <string>

namespace rvn::dct4
{

// One file a body and precision.
kernelgen::GeneratedFile bodyFile(const BodyPlan& plan, kernelgen::Format format,
                                  const kernelgen::Tuning& tuning);

// A line a body: counts, and the most values live.
std::string report();

} // namespace rvn::dct4
