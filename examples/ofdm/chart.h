// chart.h - a plane with axes to draw lines and marks in.
#ifndef OFDM_CHART_H
#define OFDM_CHART_H

#include "canvas.h"

#include <span>
#include <string>

namespace ofdm
{

constexpr examples::Color paper = {255, 255, 255};
constexpr examples::Color ink = {32, 32, 40};
constexpr examples::Color grid = {226, 226, 230};

struct Point {
    double x, y;
};

// The values at an area's left and right edge.
struct Range {
    double low, high;
};

struct Stroke {
    examples::Color color;
    int width; // pixels
    bool dashed = false;
};

enum class Mark { disc, square, triangle, cross };

class Chart
{
public:
    Chart(examples::Canvas& canvas, examples::Rectangle area, Range x, Range y);

    // A line of the grid, with its label outside.
    void gridX(double x, const std::string& label);
    void gridY(double y, const std::string& label);

    // Lines and marks are cut at the edges.
    void line(std::span<const Point> points, Stroke stroke);
    void mark(Point at, Mark mark, examples::Color color);

    // Pixels of a value.
    double left(double x) const;
    double top(double y) const;

private:
    void dot(double left, double top, int width, examples::Color color);

    examples::Canvas& canvas_;
    examples::Rectangle area_;
    Range x_, y_;
};

} // namespace ofdm

#endif
