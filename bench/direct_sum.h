// The transforms by their definitions, in binary80, as arrays in the order of memory: what the
// results of all contenders are compared with.
#pragma once

#include "options.h"

#include <vector>

using Numbers = std::vector<long double>;

// Complex numbers are pairs, real part first.
Numbers directComplexDft(const Numbers& signal, Direction direction);

// From N real numbers to their half spectrum, N/2 + 1 complex numbers, rounded down, and back.
Numbers directRealDft(const Numbers& signal);
Numbers directInverseRealDft(const Numbers& halfSpectrum, int length);

Numbers directHartley(const Numbers& signal);

Numbers directDct4(const Numbers& signal);
