// The series of the Walsh-Hadamard transform: its kernels beside a plain loop and the limit that
// the processor sets.
#pragma once

#include "options.h"
#include "series.h"

#include <string>
#include <vector>

// How it is measured, for the head of the output.
std::vector<std::string> whtMethod(const Options& options);

Series whtSeries(const Options& options, Precision precision);
