// colors.cpp - the colour map: colours at equal distances, straight lines between them.
#include "colors.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace examples
{
namespace
{

constexpr Color map[] = {
    {6, 6, 18},    {24, 22, 72},   {66, 26, 116},  {122, 32, 124},  {180, 44, 104},
    {224, 76, 66}, {246, 128, 34}, {252, 186, 52}, {254, 232, 130}, {255, 255, 240},
};

std::uint8_t between(std::uint8_t a, std::uint8_t b, double part)
{
    return static_cast<std::uint8_t>(std::lround(a + (b - a) * part));
}

} // namespace

Color levelColor(double level)
{
    constexpr int last = static_cast<int>(std::size(map)) - 1;
    const double place = std::clamp(level, 0.0, 1.0) * last;
    const int index = std::min(static_cast<int>(place), last - 1);
    const double part = place - index;
    const Color& a = map[index];
    const Color& b = map[index + 1];
    return {between(a.red, b.red, part), between(a.green, b.green, part),
            between(a.blue, b.blue, part)};
}

} // namespace examples
