// Transforms over the odd frequencies of twice their length n: what remains of a real transform of
// length 2 n when its even bins, a real transform of length n, are split off.
#pragma once

#include "generator/dft_real/real_stages.h"
#include "generator/transforms/complex_values.h"

namespace rvn::generator
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

// C[q] = sum over m of x[m] e^(-2 pi i t m q / 2n), q odd. Only the forms of column a/2 of a
// Cooley-Tukey split, n = 2 and 4, take a t that is not 1 mod 2n.
OddHalfSpectrum oddBinDft(const OddBins& method, ValuesView x, int t);

// y[m] = sum over odd q of C[q] e^(+2 pi i m q / 2n), m = 0 to n - 1, of bins that are doubled
// already, but for the real bin n.
Values inverseOddBinDft(const OddBins& method, const OddHalfSpectrum& C);

} // namespace rvn::generator
