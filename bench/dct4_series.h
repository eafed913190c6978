// The series of the DCT-IV: ours beside FFTW and the limit that the processor sets.
#pragma once

#include "options.h"
#include "series.h"

#include <string>
#include <vector>

// How it is measured, for the head of the output.
std::vector<std::string> dct4Method(const Options& options);

Series dct4Series(const Options& options, Precision precision);
