// How fast scalar code can be at best, given its operations.
#pragma once

// The operations of one call. Widenings turn binary32 operands into binary64 ones, roundings turn
// results back.
struct Work {
    int additions = 0; // and subtractions
    int multiplications = 0;
    int widenings = 0;
    int roundings = 0;
};

Work operator+(const Work& left, const Work& right);
Work operator*(int times, const Work& work);

// What a core starts in a cycle at most: two additions, two multiplications, and so many of all
// operations; what conversions take of these depends on the core and on the code.
enum class Core {
    ThreePorts,       // three in all; a widening is two of them, a rounding two
    ThreePortsMemory, // the same where every widening reads memory, which makes it one
    FourPipes,        // four in all; conversions are one operation each, done by the adders
};

double limitInCycles(const Work& work, Core core = Core::ThreePorts);
