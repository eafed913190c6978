// Which radix a level of a plan takes.
#pragma once

#include "rvngenmx.h"

#include <cstdint>

// From half of a level's length: writes 32, 16, 8, 4 or 2 and returns RvnStatusNoError, or returns
// RvnStatusSizeError and writes nothing. This rule alone decides which sizes are served.
extern "C" RvnStatus divisorsIntNonTriv(std::int32_t* radix, std::int32_t half);
