// The rates of the processor that the limit of limit.h stands on.
#pragma once

#include "options.h"

// Measures and prints how many operations of a kind start in a cycle, scalar SSE2.
void reportRates(const Options& options);
