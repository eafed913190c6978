// selection.h - dropping the small coefficients.
#ifndef EXAMPLES_SELECTION_H
#define EXAMPLES_SELECTION_H

#include <cstddef>
#include <span>
#include <string>

struct Selection {
    std::size_t kept = 0;
    std::size_t total = 0;
    double smallest = 0; // the least magnitude among the kept ones
};

// Sets all but the largest coefficients to zero. The share of them that stays, above 0 and up to 1,
// is kept to the nearest coefficient, and one stays at least; of equal ones the first.
Selection keepLargest(std::span<float> coefficients, double share);

// "7 of 68 coefficients (share 0.102941), magnitudes from 0.25"
std::string selectionText(const Selection& selection);

#endif
