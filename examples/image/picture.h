// picture.h - a picture in memory: the samples as the file holds them, at 8 or 16 bits.
#ifndef EXAMPLES_PICTURE_H
#define EXAMPLES_PICTURE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace examples
{

struct Picture {
    int width = 0;
    int height = 0;
    int channels = 0; // grey or red, green, blue; then, if there is one, the alpha channel
    int depth = 0;    // bits of a sample, 8 or 16

    // Rows from the top, pixels from the left, their channels together.
    std::vector<std::uint16_t> samples;

    int colors() const { return channels < 3 ? 1 : 3; } // channels without alpha
    bool hasAlpha() const { return channels != colors(); }
    int peak() const { return (1 << depth) - 1; } // the largest value of a sample

    std::size_t pixels() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    std::size_t rowSamples() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(channels);
    }
};

} // namespace examples

#endif
