// Numbers are drawn in the order of memory: a complex one is two real ones.

#include "input.h"

#include "rvngenmx.h"

#include <algorithm>
#include <type_traits>

namespace rvn::bench
{

template <typename Element> void fillAtRandom(std::span<Element> values, Random& random)
{
    if constexpr (std::is_floating_point_v<Element>) {
        std::uniform_real_distribution<Element> uniform(-1, 1);
        for (Element& value : values)
            value = uniform(random);
    } else {
        std::uniform_real_distribution<decltype(Element::re)> uniform(-1, 1);
        for (Element& value : values) {
            value.re = uniform(random);
            value.im = uniform(random);
        }
    }
}

template <typename Element> void fillForTiming(std::span<Element> values, Placement placement)
{
    Random random(seed);
    if (placement == Placement::OutOfPlace)
        fillAtRandom(values, random);
    else
        std::ranges::fill(values, Element{});
}

template void fillAtRandom(std::span<float>, Random&);
template void fillAtRandom(std::span<double>, Random&);
template void fillAtRandom(std::span<Rvn32fc>, Random&);
template void fillAtRandom(std::span<Rvn64fc>, Random&);
template void fillForTiming(std::span<float>, Placement);
template void fillForTiming(std::span<double>, Placement);
template void fillForTiming(std::span<Rvn32fc>, Placement);
template void fillForTiming(std::span<Rvn64fc>, Placement);

} // namespace rvn::bench
