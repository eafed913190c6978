// console.h - what the command line asks for, and what is printed, with the words of the plots.
#ifndef OFDM_CONSOLE_H
#define OFDM_CONSOLE_H

#include "command_line.h"
#include "link.h"
#include "rates.h"

#include <string>

struct Options {
    std::string input, output;
    std::string constellation, errorRates; // empty: not drawn
    Modulation modulation = Modulation::qpsk;
    int spread = 0;       // the length of the spreading DFT, 0 for none
    double decibels = 20; // Es/N0, infinite without noise
    ChannelKind channel = ChannelKind::multipath;
    std::uint64_t seed = 1;
};

// False: --help is printed, and all is done. Throws UsageFailure when it makes no sense.
bool readOptions(Options& options, int argc, char** argv);

// Throws Failure unless the input is a picture of 8 bits a sample, and no output.
Picture readInput(const Options& options);

constexpr int defaultSpread = 48; // of the spread signal that plain OFDM is held against

std::string waveformText(int spread);
std::string conditionText(const Options& options); // channel and Es/N0

void printReport(const Options& options, const Picture& picture, const Link& link,
                 const Comparison& comparison);

#endif
