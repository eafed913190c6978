// picture.h - a picture in memory, the samples as a PNG file holds them, at 8 or 16 bits.
#ifndef EXAMPLES_PICTURE_H
#define EXAMPLES_PICTURE_H

#include "part_file.h"

#include <cstdint>
#include <string>
#include <vector>

struct Picture {
    int width = 0, height = 0;
    int channels = 0; // grey or red, green, blue; then, if there is one, the alpha channel
    int depth = 0;    // bits of a sample, 8 or 16

    // Rows from the top, pixels from the left, their channels together.
    std::vector<std::uint16_t> samples;

    std::size_t colors() const { return channels < 3 ? 1 : 3; } // channels without alpha
    bool isColor(std::size_t sample) const { return sample % channels < colors(); }
    int peak() const { return (1 << depth) - 1; } // the largest value of a sample
};

// Reads the whole file; throws Failure unless it is a complete PNG of a size that can be handled.
// Palettes become red, green and blue, a transparent colour becomes an alpha channel, samples of
// fewer than 8 bits are stretched to 8.
Picture readPicture(const std::string& path);

// Fills a PNG file, which is left to be committed; throws Failure when that fails.
void writePicture(PartFile& file, const Picture& picture);

// Prints the line "picture  ..." of a report.
void printPicture(const std::string& path, const Picture& picture);

struct Comparison {
    double meanSquare = 0; // of the differences of all samples, alpha left out
    int largest = 0;       // difference
};

// The pictures are of the same size and kind.
Comparison compare(const Picture& original, const Picture& rebuilt);

// Prints the line "PSNR  ...", the peak signal-to-noise ratio 10 log10(peak^2 / mean square).
void printPeakRatio(const Comparison& comparison, const Picture& picture, const char* ifEqual);

#endif
