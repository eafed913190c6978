// console.cpp - see console.h.
#include "console.h"

#include "program.h"

#include <algorithm>
#include <cstdio>

bool readOptions(Options& options, int argc, char** argv)
{
    CommandLine line(
        "hadamard",
        "Rebuilds a picture, a PNG, from the largest coefficients of the Walsh-Hadamard "
        "transforms\nof its blocks.");
    std::string order = "3", kept = "0.1";
    line.input("PICTURE", options.input);
    line.option("-b,--block", "ORDER", order, "blocks of 2^ORDER x 2^ORDER pixels, 1 to 13");
    line.option("-k,--keep", "SHARE", kept, "of the coefficients; 1 rebuilds the picture exactly");
    line.option("-o,--output", "FILE", options.output, "a PNG: the input's name with -rebuilt.png");
    if (!line.parse(argc, argv))
        return false;
    options.order = wholeNumber("--block", order, 1, 13);
    options.share = share("--keep", kept);
    options.output = resultName(options.output, options.input, "-rebuilt.png");
    return true;
}

void printReport(const Options& options, const Picture& picture, const Layout& layout,
                 const Selection& selection, const Comparison& comparison, const KernelUse& use)
{
    const int length = 1 << layout.order;
    printPicture(options.input, picture);
    std::printf("blocks         %d x %d pixels (order %d), %d across and %d down, %s\n", length,
                length, layout.order, layout.across, layout.down,
                layout.planes == 1 ? "one plane" : "luma and two of chroma");
    std::printf("kept           %s\n", selectionText(selection).c_str());
    printPeakRatio(comparison, picture, "rebuilt exactly");
    std::printf("largest error  %d of %d\n", comparison.largest, picture.peak());
    std::printf("speed          %.3g million transforms per second (%lld of length %d, there and "
                "back, in %.3g ms)\n",
                static_cast<double>(use.transforms) / std::max(use.seconds, 1e-9) / 1e6,
                static_cast<long long>(use.transforms), length, use.seconds * 1e3);
    std::printf("rebuilt        %s\n", printable(options.output).c_str());
}
