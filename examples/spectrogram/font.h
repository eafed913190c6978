// font.h - a small bitmap font, made for this program.
#ifndef SPECTROGRAM_FONT_H
#define SPECTROGRAM_FONT_H

namespace spectrogram
{

constexpr int glyphWidth = 5;
constexpr int glyphHeight = 9;  // seven rows above the baseline, two below it
constexpr int glyphAdvance = 6; // from one character to the next

// Whether a pixel of a character is set, x below glyphWidth and y below glyphHeight. Characters
// other than printable ASCII look like a question mark.
bool glyphPixel(char character, int x, int y);

} // namespace spectrogram

#endif
