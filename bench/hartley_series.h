// The series of the Hartley transform: its kernels beside FFTW.
#pragma once

#include "options.h"
#include "series.h"

#include <string>
#include <vector>

// How it is measured, for the head of the output.
std::vector<std::string> hartleyMethod(const Options& options);

Series hartleySeries(const Options& options, Precision precision);
