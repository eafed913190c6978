// report.h - what the program prints.
#ifndef MDCT_REPORT_H
#define MDCT_REPORT_H

#include "canvas.h"
#include "options.h"
#include "selection.h"
#include "sound.h"
#include "transform.h"

namespace mdct
{

// How near a recording comes that is rebuilt from the kept coefficients and from all, in dB.
struct Quality {
    double fromKept, fromAll;
};

// Prints on standard output what was done.
void printReport(const Options& options, const examples::Sound& sound, const Transform& transform,
                 const examples::Selection& selection, Quality quality,
                 const examples::Canvas& picture);

} // namespace mdct

#endif
