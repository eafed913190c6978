// console.h - what the command line asks for, and what is written, drawn and printed.
#ifndef CONVOLVE_CONSOLE_H
#define CONVOLVE_CONSOLE_H

#include "command_line.h"
#include "convolution.h"
#include "direct.h"
#include "response.h"
#include "sound.h"

#include <string>

struct Options {
    std::string input, output;
    std::string picture;      // empty: none
    std::string responseFile; // empty: the response is designed
    Band band;                // to be passed by the designed response
    int taps = 0;             // of the designed response
};

// False: --help is printed, and all is done. Throws UsageFailure when it makes no sense.
bool readOptions(Options& options, int argc, char** argv);

// Throws Failure where a result has the name of what is read.
void expectOtherFiles(const Options& options);

// Designed or read. Warns on standard error of taps that cannot reach the frequencies.
std::vector<float> responseOf(const Options& options, int sampleRate);

// The filtered recording and, if it is wanted, the picture take their names when both are whole.
void writeFiles(const Options& options, const Sound& sound, const Sound& filtered);

void printReport(const Options& options, const Sound& sound, std::size_t taps,
                 const Sound& filtered, const Use& use, Distance distance);

#endif
