// What else is measured, instead of the families.
#pragma once

#include "options.h"

// How many additions, multiplications and conversions the processor starts in a cycle.
void reportRates(const Options& options);

// What a call through a dispatcher takes beside one of the kernel.
void reportDispatch(const Options& options);

// All lengths of the complex DFT called in turn.
void reportMixedLengths(const Options& options);

// Many transforms of one length, the complex and the real DFT, forward and out of place: our loop
// beside FFTW's batched plans, over contiguous signals and over the columns of a matrix.
void reportBatches(const Options& options);
