// The series of the complex DFT: its kernels beside FFTW and KissFFT.
#pragma once

#include "options.h"
#include "series.h"

#include <string>
#include <vector>

// How it is measured, for the head of the output.
std::vector<std::string> complexMethod(const Options& options);

Series complexSeries(const Options& options, Precision precision);
