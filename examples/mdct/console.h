// console.h - what the command line asks for, and what is printed and drawn.
#ifndef MDCT_CONSOLE_H
#define MDCT_CONSOLE_H

#include "command_line.h"
#include "selection.h"
#include "transform.h"

#include <string>

struct Options {
    std::string input, output, picture;
    int hop = 0; // a power of two, 64 to 32768
    Window window = Window::sine;
    double share = 0; // of the coefficients that is kept, above 0 and up to 1
};

// How near a recording comes that is rebuilt from the kept coefficients and from all, in dB.
struct Quality {
    double fromKept, fromAll;
};

// False: --help is printed, and all is done. Throws UsageFailure when it makes no sense.
bool readOptions(Options& options, int argc, char** argv);

// Throws Failure unless all coefficients have rebuilt the recording but for rounding.
void expectRebuilt(double decibels);

// Draws the spectrum's coefficients, what is zero in the darkest colour. 0 dB is the largest that a
// tone of amplitude 1 makes, the transform's toneGain.
void drawPicture(PartFile& file, const Options& options, const Sound& sound,
                 const Spectrum& spectrum, double toneGain);

void printReport(const Options& options, const Sound& sound, const Transform& transform,
                 const Selection& selection, Quality quality);

#endif
