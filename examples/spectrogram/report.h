// report.h - what the program prints.
#ifndef SPECTROGRAM_REPORT_H
#define SPECTROGRAM_REPORT_H

#include "analysis.h"
#include "canvas.h"

namespace spectrogram
{

// Prints the analysis on standard output.
void printReport(const Options& options, const Analysis& analysis, const examples::Canvas& picture);

} // namespace spectrogram

#endif
