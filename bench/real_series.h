// The series of the real DFT: its kernels of the three layouts beside FFTW and KissFFT.
#pragma once

#include "options.h"
#include "series.h"

#include <string>
#include <vector>

// How it is measured, for the head of the output.
std::vector<std::string> realMethod(const Options& options);

Series realSeries(const Options& options, Precision precision);
