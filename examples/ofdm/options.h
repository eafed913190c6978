// options.h - what the command line asks for.
#ifndef OFDM_OPTIONS_H
#define OFDM_OPTIONS_H

#include "channel.h"
#include "constellation.h"

#include <string>

namespace ofdm
{

struct Options {
    std::string input;
    std::string output;        // by default the input's name with -received.png, in this directory
    std::string constellation; // empty: not drawn
    std::string errorRates;    // empty: not drawn
    Modulation modulation = Modulation::qpsk;
    int spread = 0;       // the length of the spreading DFT, 0 for none
    double decibels = 20; // Es/N0, infinite without noise
    ChannelKind channel = ChannelKind::multipath;
    std::uint64_t seed = 1;
    bool helpOnly = false; // print the usage and stop; nothing else is filled in
};

// Reads the command line; throws UsageFailure when it makes no sense.
Options parseOptions(int argc, char** argv);

// The text of --help.
const char* usageText();

} // namespace ofdm

#endif
