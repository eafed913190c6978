// A file of its own: where a compiler saw the cosine and the sine of one angle side by side, it
// would call a function for both.

#include "dct4/trigonometry.h"

#include <cmath>
#include <numbers>

namespace
{

float angle32f(float x)
{
    return static_cast<float>(static_cast<double>(x) * std::numbers::pi);
}

} // namespace

float rvngCosPi_32f(float x)
{
    return std::cos(angle32f(x));
}

float rvngSinPi_32f(float x)
{
    return std::sin(angle32f(x));
}

double rvngCosPi_64f(double x)
{
    return std::cos(x * std::numbers::pi);
}

double rvngSinPi_64f(double x)
{
    return std::sin(x * std::numbers::pi);
}
