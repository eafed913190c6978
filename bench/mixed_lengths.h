// Calls of all lengths in turn, where the code of a kernel is no longer in the caches next to the
// core when it is called again, beside the loops that call one of them over and over.
#pragma once

#include "options.h"

// The complex DFT, forward and out of place.
void reportMixedLengths(const Options& options);
