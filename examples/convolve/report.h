// report.h - what the program prints.
#ifndef CONVOLVE_REPORT_H
#define CONVOLVE_REPORT_H

#include "comparison.h"
#include "convolution.h"
#include "options.h"
#include "sound.h"

#include <span>

namespace convolve
{

// Prints on standard output what was done.
void printReport(const Options& options, const examples::Sound& sound,
                 std::span<const float> response, const examples::Sound& filtered, const Use& use,
                 Distance distance);

} // namespace convolve

#endif
