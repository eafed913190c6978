// A status that is dropped: this must not compile where warnings are errors.

#include "rvngenmx.hpp"

void transform(std::span<float> x)
{
    rvng::hartley(x, x, rvng::Scale::None);
}
