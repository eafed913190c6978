// planes.cpp - see planes.h.
#include "planes.h"

#include "failure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>

namespace hadamard
{
namespace
{

constexpr std::int64_t mostValues = std::int64_t{1} << 28;

using Vector = std::array<double, 3>;

// Rows: luma, blue to red, green to magenta; divided by their lengths the matrix is orthogonal.
constexpr std::array<Vector, 3> axes = {{{1, 1, 1}, {1, 0, -1}, {1, -2, 1}}};
constexpr Vector squaredLengths = {3, 2, 6};

double axis(std::size_t plane, std::size_t color)
{
    return axes[plane][color] / std::sqrt(squaredLengths[plane]);
}

// Both ways between the colours of a pixel and its values in the planes; grey stays as it is.
class Colors
{
public:
    explicit Colors(int count) : count_(static_cast<std::size_t>(count))
    {
        for (std::size_t plane = 0; plane < count_; ++plane)
            for (std::size_t color = 0; color < count_; ++color)
                matrix_[plane][color] = count_ == 1 ? 1 : axis(plane, color);
    }

    Vector toPlanes(const Vector& colors) const
    {
        Vector values = {};
        for (std::size_t plane = 0; plane < count_; ++plane)
            for (std::size_t color = 0; color < count_; ++color)
                values[plane] += matrix_[plane][color] * colors[color];
        return values;
    }

    Vector toColors(const Vector& values) const
    {
        Vector colors = {};
        for (std::size_t color = 0; color < count_; ++color)
            for (std::size_t plane = 0; plane < count_; ++plane)
                colors[color] += matrix_[plane][color] * values[plane];
        return colors;
    }

private:
    std::size_t count_;
    std::array<Vector, 3> matrix_ = {};
};

double middle(const Picture& picture)
{
    return (picture.peak() + 1) / 2;
}

Layout layoutOf(const Picture& picture, int order)
{
    const int length = 1 << order;
    const Layout layout = {order, (picture.width - 1) / length + 1,
                           (picture.height - 1) / length + 1, picture.colors()};
    const std::int64_t values = static_cast<std::int64_t>(layout.planeSize()) * layout.planes;
    if (values > mostValues)
        throw examples::Failure("the picture in blocks of " + std::to_string(length) + " x " +
                                std::to_string(length) + " has " + std::to_string(values) +
                                " values, more than the " + std::to_string(mostValues) +
                                " that can be handled");
    return layout;
}

} // namespace

std::size_t Layout::planeSize() const
{
    return (static_cast<std::size_t>(across) * static_cast<std::size_t>(down)) << (2 * order);
}

std::size_t Layout::index(int plane, int x, int y) const
{
    const auto block = static_cast<std::size_t>(y >> order) * static_cast<std::size_t>(across) +
                       static_cast<std::size_t>(x >> order);
    const int mask = (1 << order) - 1;
    const auto inside = static_cast<std::size_t>((y & mask) << order | (x & mask));
    return static_cast<std::size_t>(plane) * planeSize() + (block << (2 * order)) + inside;
}

Planes splitPicture(const Picture& picture, int order)
{
    Planes planes = {layoutOf(picture, order), {}};
    const Layout& layout = planes.layout;
    planes.values.resize(layout.planeSize() * static_cast<std::size_t>(layout.planes));
    const Colors colors(layout.planes);
    for (int y = 0; y < layout.down << order; ++y) {
        const std::uint16_t* row =
            &picture.samples[static_cast<std::size_t>(std::min(y, picture.height - 1)) *
                             picture.rowSamples()];
        for (int x = 0; x < layout.across << order; ++x) {
            const std::uint16_t* pixel = row + std::min(x, picture.width - 1) * picture.channels;
            Vector samples = {};
            for (int i = 0; i < layout.planes; ++i)
                samples[static_cast<std::size_t>(i)] = pixel[i] - middle(picture);
            const Vector values = colors.toPlanes(samples);
            for (int i = 0; i < layout.planes; ++i)
                planes.values[layout.index(i, x, y)] =
                    static_cast<float>(values[static_cast<std::size_t>(i)]);
        }
    }
    return planes;
}

Picture joinPlanes(const Planes& planes, const Picture& original)
{
    Picture picture = original;
    const Layout& layout = planes.layout;
    const Colors colors(layout.planes);
    std::uint16_t* pixel = picture.samples.data();
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x, pixel += picture.channels) {
            Vector values = {};
            for (int i = 0; i < layout.planes; ++i)
                values[static_cast<std::size_t>(i)] = planes.values[layout.index(i, x, y)];
            const Vector samples = colors.toColors(values);
            for (int i = 0; i < layout.planes; ++i) {
                const double sample = samples[static_cast<std::size_t>(i)] + middle(picture);
                pixel[i] = static_cast<std::uint16_t>(
                    std::lround(std::clamp(sample, 0.0, static_cast<double>(picture.peak()))));
            }
        }
    }
    return picture;
}

} // namespace hadamard
