// chart.cpp - see chart.h.
#include "chart.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ofdm
{
namespace
{

constexpr int markRadius = 5;
constexpr double dashLength = 7;

// Whether a pixel beside the middle of a mark belongs to it.
bool isInside(Mark mark, int x, int y)
{
    switch (mark) {
    case Mark::disc:
        return x * x + y * y <= markRadius * markRadius;
    case Mark::square:
        return std::max(std::abs(x), std::abs(y)) < markRadius;
    case Mark::triangle:
        return 2 * std::abs(x) <= y + markRadius && y < markRadius;
    case Mark::cross:
        return std::abs(std::abs(x) - std::abs(y)) <= 1;
    }
    return false;
}

} // namespace

Chart::Chart(examples::Canvas& canvas, examples::Rectangle area, Range x, Range y)
    : canvas_(canvas), area_(area), x_(x), y_(y)
{
}

double Chart::left(double x) const
{
    return area_.left + (x - x_.low) / (x_.high - x_.low) * area_.width;
}

double Chart::top(double y) const
{
    return area_.bottom() - (y - y_.low) / (y_.high - y_.low) * area_.height;
}

void Chart::gridX(double x, const std::string& label)
{
    const int place = static_cast<int>(std::lround(left(x)));
    canvas_.fill({place, area_.top, 1, area_.height}, grid);
    canvas_.text(place, area_.bottom() + 18, label, examples::Anchor::middle, ink);
}

void Chart::gridY(double y, const std::string& label)
{
    const int place = static_cast<int>(std::lround(top(y)));
    canvas_.fill({area_.left, place, area_.width, 1}, grid);
    canvas_.text(area_.left - 10, place, label, examples::Anchor::right, ink);
}

void Chart::dot(double left, double top, int width, examples::Color color)
{
    const auto x = static_cast<int>(std::lround(left - (width - 1) / 2.0));
    const auto y = static_cast<int>(std::lround(top - (width - 1) / 2.0));
    if (x >= area_.left && x + width <= area_.right() && y >= area_.top &&
        y + width <= area_.bottom())
        canvas_.fill({x, y, width, width}, color);
}

void Chart::line(std::span<const Point> points, Stroke stroke)
{
    constexpr double step = 0.5; // pixels
    double way = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double x = left(points[i - 1].x), y = top(points[i - 1].y);
        const double dx = left(points[i].x) - x, dy = top(points[i].y) - y;
        const double length = std::hypot(dx, dy);
        for (double part = 0; part < length; part += step, way += step)
            if (!stroke.dashed || std::fmod(way / dashLength, 2) < 1)
                dot(x + part / length * dx, y + part / length * dy, stroke.width, stroke.color);
    }
}

void Chart::mark(Point at, Mark mark, examples::Color color)
{
    for (int y = -markRadius; y <= markRadius; ++y)
        for (int x = -markRadius; x <= markRadius; ++x)
            if (isInside(mark, x, y))
                dot(left(at.x) + x, top(at.y) + y, 1, color);
}

} // namespace ofdm
