// console.h - what the command line asks for, and what is printed.
#ifndef HADAMARD_CONSOLE_H
#define HADAMARD_CONSOLE_H

#include "command_line.h"
#include "planes.h"
#include "selection.h"

#include <string>

struct Options {
    std::string input, output;
    int order = 0;    // blocks are 2^order pixels wide and high, 1 to 13
    double share = 0; // of the coefficients, kept; above 0 and up to 1
};

// How often the library's kernels were called, and the time spent in them alone.
struct KernelUse {
    std::int64_t transforms = 0;
    double seconds = 0;
};

// False: --help is printed, and all is done. Throws UsageFailure when it makes no sense.
bool readOptions(Options& options, int argc, char** argv);

void printReport(const Options& options, const Picture& picture, const Layout& layout,
                 const Selection& selection, const Comparison& comparison, const KernelUse& use);

#endif
