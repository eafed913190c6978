// report.h - what the program prints.
#ifndef HADAMARD_REPORT_H
#define HADAMARD_REPORT_H

#include "blocks.h"
#include "comparison.h"
#include "options.h"
#include "planes.h"
#include "selection.h"

namespace hadamard
{

// Prints one line a fact on standard output.
void printReport(const Options& options, const Picture& picture, const Layout& layout,
                 const examples::Selection& selection, const examples::Comparison& comparison,
                 const KernelUse& use);

} // namespace hadamard

#endif
