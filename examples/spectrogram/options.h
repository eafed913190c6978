// options.h - what the command line asks for.
#ifndef SPECTROGRAM_OPTIONS_H
#define SPECTROGRAM_OPTIONS_H

#include <string>

namespace spectrogram
{

struct Options {
    std::string input;
    std::string output;    // the picture; by default the input's name with .png, in this directory
    int length = 64;       // samples of a frame, 2 to 64: the length of the transform
    int hop = 32;          // samples from one frame to the next, 1 to length; by default length / 2
    bool iq = false;       // two channels are the two parts of one complex signal
    bool helpOnly = false; // print the usage and stop; nothing else is filled in
};

// Reads the command line; throws UsageFailure when it makes no sense.
Options parseOptions(int argc, char** argv);

// The text of --help.
const char* usageText();

} // namespace spectrogram

#endif
