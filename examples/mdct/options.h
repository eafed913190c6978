// options.h - what the command line asks for.
#ifndef MDCT_OPTIONS_H
#define MDCT_OPTIONS_H

#include "window.h"

#include <string>

namespace mdct
{

struct Options {
    std::string input;
    std::string output;  // by default the input's name with .mdct.wav, in this directory
    std::string picture; // by default the input's name with .mdct.png, in this directory
    int hop = 1024;      // a power of two, 64 to 32768
    Window window = Window::sine;
    double share = 0.1;    // of the coefficients that is kept, above 0 and up to 1
    bool helpOnly = false; // print the usage and stop; nothing else is filled in
};

// Reads the command line; throws UsageFailure when it makes no sense.
Options parseOptions(int argc, char** argv);

// The text of --help.
const char* usageText();

} // namespace mdct

#endif
