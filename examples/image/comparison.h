// comparison.h - how near a rebuilt picture comes to the original.
#ifndef EXAMPLES_COMPARISON_H
#define EXAMPLES_COMPARISON_H

#include "picture.h"

namespace examples
{

struct Comparison {
    double meanSquare = 0; // of the differences of all samples, alpha left out
    int largest = 0;       // difference
};

// The pictures are of the same size and kind.
Comparison compare(const Picture& original, const Picture& rebuilt);

// Peak signal-to-noise ratio in dB, 10 log10(peak^2 / mean square); infinite for equal pictures.
double signalToNoise(const Comparison& comparison, int peak);

} // namespace examples

#endif
