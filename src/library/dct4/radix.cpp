#include "dct4/radix.h"

namespace
{

struct Rule {
    std::int32_t smallestHalf;
    std::int32_t radix;
};

// The first rule whose radix divides the half, and whose floor it reaches.
constexpr Rule rules[] = {{512, 32}, {128, 16}, {32, 8}, {16, 4}, {4, 2}};

} // namespace

RvnStatus divisorsIntNonTriv(std::int32_t* radix, std::int32_t half)
{
    for (const auto& [smallestHalf, candidate] : rules) {
        if (half >= smallestHalf && half % candidate == 0) {
            *radix = candidate;
            return RvnStatusNoError;
        }
    }
    return RvnStatusSizeError;
}
