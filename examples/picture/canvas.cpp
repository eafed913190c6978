// canvas.cpp - drawing; text is the bitmap font at twice its size.
#include "canvas.h"

#include "font.h"

namespace examples
{
namespace
{

constexpr int textScale = 2;
constexpr int capitalHeight = 7;

// Calls plot(x, y) for every pixel of the text, x to the right and y down from its upper left.
template <typename Plot> void plotText(std::string_view text, Plot plot)
{
    int left = 0;
    for (const char character : text) {
        for (int y = 0; y < glyphHeight * textScale; ++y)
            for (int x = 0; x < glyphWidth * textScale; ++x)
                if (glyphPixel(character, x / textScale, y / textScale))
                    plot(left + x, y);
        left += glyphAdvance * textScale;
    }
}

} // namespace

Canvas::Canvas(int width, int height, Color background)
    : width_(width), height_(height),
      rgb_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)
{
    fill({0, 0, width, height}, background);
}

void Canvas::set(int x, int y, Color color)
{
    if (x < 0 || x >= width_ || y < 0 || y >= height_)
        return;
    const std::size_t pixel = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                              static_cast<std::size_t>(x);
    rgb_[3 * pixel] = color.red;
    rgb_[3 * pixel + 1] = color.green;
    rgb_[3 * pixel + 2] = color.blue;
}

void Canvas::fill(Rectangle area, Color color)
{
    for (int y = area.top; y < area.bottom(); ++y)
        for (int x = area.left; x < area.right(); ++x)
            set(x, y, color);
}

void Canvas::outline(Rectangle inside, Color color)
{
    fill({inside.left - 1, inside.top - 1, inside.width + 2, 1}, color);
    fill({inside.left - 1, inside.bottom(), inside.width + 2, 1}, color);
    fill({inside.left - 1, inside.top, 1, inside.height}, color);
    fill({inside.right(), inside.top, 1, inside.height}, color);
}

void Canvas::text(int x, int y, std::string_view text, Anchor anchor, Color color)
{
    const int before = anchor == Anchor::left     ? 0
                       : anchor == Anchor::middle ? textWidth(text) / 2
                                                  : textWidth(text);
    const int left = x - before;
    const int top = y - capitalHeight * textScale / 2;
    plotText(text, [&](int dx, int dy) { set(left + dx, top + dy, color); });
}

void Canvas::textUpwards(int x, int y, std::string_view text, Color color)
{
    const int left = x - capitalHeight * textScale / 2;
    const int bottom = y + textWidth(text) / 2;
    plotText(text, [&](int dx, int dy) { set(left + dy, bottom - dx, color); });
}

int textWidth(std::string_view text)
{
    const int advances = static_cast<int>(text.size()) * glyphAdvance;
    return text.empty() ? 0 : (advances - (glyphAdvance - glyphWidth)) * textScale;
}

} // namespace examples
