// options.h - what the command line asks for.
#ifndef HADAMARD_OPTIONS_H
#define HADAMARD_OPTIONS_H

#include <string>

namespace hadamard
{

struct Options {
    std::string input;
    std::string output;    // by default the input's name with -rebuilt.png, in this directory
    int order = 3;         // blocks are 2^order pixels wide and high, 1 to 13
    double share = 0.1;    // of the coefficients, kept; above 0 and up to 1
    bool helpOnly = false; // print the usage and stop; nothing else is filled in
};

// Reads the command line; throws UsageFailure when it makes no sense.
Options parseOptions(int argc, char** argv);

// The text of --help.
const char* usageText();

} // namespace hadamard

#endif
