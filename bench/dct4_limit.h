// How fast scalar code can be at best that does the operations of our DCT-IV.
#pragma once

namespace rvn::bench
{

struct Operations {
    double multiplications;
    double additions; // and subtractions
};

// Of our DCT-IV of a power of two, the tables of its plan being there.
Operations dct4Operations(int size);

// For a processor that starts two additions a cycle and three operations in all.
double dct4LimitInCycles(int size);

} // namespace rvn::bench
