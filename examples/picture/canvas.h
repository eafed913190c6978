// canvas.h - pixels to draw on: points, rectangles and text, all clipped at the edges.
#ifndef EXAMPLES_CANVAS_H
#define EXAMPLES_CANVAS_H

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace examples
{

struct Color {
    std::uint8_t red, green, blue;
};

struct Rectangle {
    int left, top, width, height;
    constexpr int right() const { return left + width; }
    constexpr int bottom() const { return top + height; }
};

// Which point of a text is put at the given place.
enum class Anchor { left, middle, right };

class Canvas
{
public:
    Canvas(int width, int height, Color background);

    int width() const { return width_; }
    int height() const { return height_; }
    std::span<const std::uint8_t> rgb() const { return rgb_; } // rows from the top, 3 bytes a pixel

    void set(int x, int y, Color color);
    void fill(Rectangle area, Color color);
    void outline(Rectangle inside, Color color); // one pixel wide, around the area

    // The text's capital letters are centred on y.
    void text(int x, int y, std::string_view text, Anchor anchor, Color color);

    // Text running upwards, centred on both coordinates.
    void textUpwards(int x, int y, std::string_view text, Color color);

private:
    int width_, height_;
    std::vector<std::uint8_t> rgb_;
};

// Pixels a text is long.
int textWidth(std::string_view text);

} // namespace examples

#endif
