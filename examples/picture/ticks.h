// ticks.h - round numbers on an axis, and the unit that keeps them short.
#ifndef EXAMPLES_TICKS_H
#define EXAMPLES_TICKS_H

#include <string>
#include <vector>

namespace examples
{

struct Unit {
    const char* name;
    double size; // in the base unit
};

// The unit for values of up to the given size, in seconds or in Hz.
Unit timeUnit(double seconds);
Unit frequencyUnit(double hertz);

struct Ticks {
    std::vector<double> values; // ascending
    int decimals;               // that tell the values apart
};

// The multiples of 1, 2 or 5 times a power of ten from low to high, at most so many of them (two or
// more are asked for).
Ticks roundTicks(double low, double high, int most);

// A number with a fixed count of decimals.
std::string fixedText(double value, int decimals);

} // namespace examples

#endif
