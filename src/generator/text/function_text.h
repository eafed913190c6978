// The text of a kernel's functions, by their kind: one after the other straight through a graph, in
// passes over work memory, or in a loop of the DCT-IV engine.
#pragma once

#include "generator/kernel.h"
#include "generator/text/body.h"

namespace rvn::generator
{

using ScheduledGraphs = std::vector<ScheduledGraph>; // by the kernel's parts

std::string functionText(const std::vector<StraightLine>& functions, const Kernel& kernel,
                         const ScheduledGraphs& graphs);
std::string functionText(const Buffered& function, const Kernel& kernel,
                         const ScheduledGraphs& graphs);
std::string functionText(const EngineBody& function, const Kernel& kernel,
                         const ScheduledGraphs& graphs);

// The declaration of a function of the engine, without its semicolon.
std::string prototypeText(const EngineBody& function, Format format);

} // namespace rvn::generator
