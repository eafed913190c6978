// The spectrum of a real signal.
#pragma once

#include "generator/transforms/complex_values.h"

namespace rvn::generator
{

// The bins 0 to length/2 of a spectrum with X[length - k] = conj X[k]. Bin 0 and, for even length,
// bin length/2 are real: their imaginary parts do not exist.
struct HalfSpectrum {
    int length;
    ComplexValues bins;

    explicit HalfSpectrum(int N) : length(N), bins(N / 2 + 1) {}

    ComplexValue at(int k) const // any k from 0; above length/2 the conjugate partner's
    {
        k %= length;
        return 2 * k <= length ? bins[k] : conjugate(bins[length - k]);
    }

    void set(int k, ComplexValue x)
    {
        k %= length;
        if (2 * k <= length)
            bins[k] = x;
        else
            bins[length - k] = conjugate(x);
    }
};

} // namespace rvn::generator
