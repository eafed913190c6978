// planes.cpp - see planes.h.
#include "planes.h"

#include "program.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace
{

constexpr std::int64_t mostValues = std::int64_t{1} << 28;

using Vector = std::array<double, 3>;

// Rows: luma, blue to red, green to magenta; divided by their lengths the matrix is orthogonal.
constexpr std::array<Vector, 3> axes = {{{1, 1, 1}, {1, 0, -1}, {1, -2, 1}}};
constexpr Vector squaredLengths = {3, 2, 6};

// Grey stays as it is.
double axis(int planes, std::size_t plane, std::size_t color)
{
    return planes == 1 ? 1 : axes[plane][color] / std::sqrt(squaredLengths[plane]);
}

// Both ways between the colours of a pixel and its values in the planes: the matrix of the axes, or
// its transpose.
Vector turned(const Vector& from, int planes, bool isBack)
{
    Vector to = {};
    const auto count = static_cast<std::size_t>(planes);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = 0; j < count; ++j)
            to[i] += (isBack ? axis(planes, j, i) : axis(planes, i, j)) * from[j];
    return to;
}

double middle(const Picture& picture)
{
    return (picture.peak() + 1) / 2;
}

Layout layoutOf(const Picture& picture, int order)
{
    const int length = 1 << order;
    const Layout layout = {order, (picture.width - 1) / length + 1,
                           (picture.height - 1) / length + 1, static_cast<int>(picture.colors())};
    const std::int64_t values = static_cast<std::int64_t>(layout.planeSize()) * layout.planes;
    if (values > mostValues)
        throw Failure("the picture in blocks of " + std::to_string(length) + " x " +
                      std::to_string(length) + " has " + std::to_string(values) +
                      " values, more than the " + std::to_string(mostValues) +
                      " that can be handled");
    return layout;
}

} // namespace

std::size_t Layout::planeSize() const
{
    return (across * down) << (2 * order);
}

std::size_t Layout::index(std::size_t plane, int x, int y) const
{
    const auto block = static_cast<std::size_t>(y >> order) * across + (x >> order);
    const int mask = (1 << order) - 1;
    const auto inside = static_cast<std::size_t>((y & mask) << order | (x & mask));
    return plane * planeSize() + (block << (2 * order)) + inside;
}

Planes splitPicture(const Picture& picture, int order)
{
    Planes planes = {layoutOf(picture, order), {}};
    const Layout& layout = planes.layout;
    planes.values.resize(layout.planeSize() * layout.planes);
    for (int y = 0; y < layout.down << order; ++y)
        for (int x = 0; x < layout.across << order; ++x) {
            const auto pixel = static_cast<std::size_t>(
                (std::min(y, picture.height - 1) * picture.width + std::min(x, picture.width - 1)) *
                picture.channels);
            Vector samples = {};
            for (std::size_t i = 0; i < picture.colors(); ++i)
                samples[i] = picture.samples[pixel + i] - middle(picture);
            const Vector values = turned(samples, layout.planes, false);
            for (std::size_t i = 0; i < picture.colors(); ++i)
                planes.values[layout.index(i, x, y)] = static_cast<float>(values[i]);
        }
    return planes;
}

Picture joinPlanes(const Planes& planes, const Picture& original)
{
    Picture picture = original;
    const Layout& layout = planes.layout;
    std::uint16_t* pixel = picture.samples.data();
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x, pixel += picture.channels) {
            Vector values = {};
            for (std::size_t i = 0; i < picture.colors(); ++i)
                values[i] = planes.values[layout.index(i, x, y)];
            const Vector samples = turned(values, layout.planes, true);
            for (std::size_t i = 0; i < picture.colors(); ++i)
                pixel[i] = static_cast<std::uint16_t>(std::lround(std::clamp(
                    samples[i] + middle(picture), 0.0, static_cast<double>(picture.peak()))));
        }
    return picture;
}
