// console.h - what the command line asks for, and what is printed and drawn.
#ifndef SPECTROGRAM_CONSOLE_H
#define SPECTROGRAM_CONSOLE_H

#include "analysis.h"

struct Options {
    std::string input, output;
    int length = 0;  // samples of a frame, 2 to 64: the length of the transform
    int hop = 0;     // samples from one frame to the next, 1 to length
    bool iq = false; // two channels are the two parts of one complex signal
};

// False: --help is printed, and all is done. Throws UsageFailure when it makes no sense.
bool readOptions(Options& options, int argc, char** argv);

// Throws Failure unless the recording has what the options want and is not the output.
void expectFit(const Options& options, const Sound& sound);

void drawPicture(PartFile& file, const Options& options, const Sound& sound,
                 const Analysis& analysis);
void printReport(const Options& options, const Sound& sound, const Analysis& analysis);

#endif
