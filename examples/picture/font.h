// font.h - a small bitmap font, made for these programs.
#ifndef EXAMPLES_FONT_H
#define EXAMPLES_FONT_H

namespace examples
{

constexpr int glyphWidth = 5;
constexpr int glyphHeight = 9;  // seven rows above the baseline, two below it
constexpr int glyphAdvance = 6; // from one character to the next

// Whether a pixel of a character is set, x below glyphWidth and y below glyphHeight. Characters
// other than printable ASCII look like a question mark.
bool glyphPixel(char character, int x, int y);

} // namespace examples

#endif
