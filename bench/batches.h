// Many transforms of one length: our loop beside FFTW's batched plans, over contiguous signals and
// over the columns of a matrix.
#pragma once

#include "options.h"

// The complex and the real DFT, forward and out of place.
void reportBatches(const Options& options);
