// Transforms over the odd frequencies of twice their length: what remains of a real transform of
// length 2 n when its even bins, a real transform of length n, are split off.
#pragma once

#include "dft_real/builders.h"

namespace rvn::dft_real
{

// The bins q = 1, 3, 5, ... up to n of a spectrum of length 2 n with C[2n - q] = conj C[q]. For odd
// n, bin n is real.
struct OddHalfSpectrum {
    int n;
    ComplexValues bins; // C[q] at index q/2

    explicit OddHalfSpectrum(int size) : n(size), bins((size + 1) / 2) {}

    ComplexValue at(int q) const; // any odd q; above n the conjugate partner's
    void set(int q, ComplexValue x);
};

// C[q] = sum over i of b[i] e^(-2 pi i i q / 2n), q odd.
OddHalfSpectrum oddBinDft(ValuesView b, OddBins method, const Nesting& inner);

// d[j] = sum over odd q of C[q] e^(+2 pi i j q / 2n), j = 0 to n - 1, of bins that are doubled
// already, but for the real bin n.
Values inverseOddBinDft(const OddHalfSpectrum& C, OddBins method, const Nesting& inner);

} // namespace rvn::dft_real
