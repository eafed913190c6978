// options.h - what the command line asks for.
#ifndef CONVOLVE_OPTIONS_H
#define CONVOLVE_OPTIONS_H

#include "response.h"

#include <string>

namespace convolve
{

struct Options {
    std::string input;
    std::string output;       // by default the input's name with .filtered.wav, in this directory
    std::string responseFile; // empty: the response is designed
    Band band;                // to be passed by the designed response
    int taps = 33;            // of the designed response
    bool helpOnly = false;    // print the usage and stop; nothing else is filled in
};

// Reads the command line; throws UsageFailure when it makes no sense.
Options parseOptions(int argc, char** argv);

// The text of --help.
const char* usageText();

} // namespace convolve

#endif
