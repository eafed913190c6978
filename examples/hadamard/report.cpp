// report.cpp - one line a fact.
#include "report.h"

#include "program.h"

#include <algorithm>
#include <cstdio>

namespace hadamard
{

void printReport(const Options& options, const Picture& picture, const Layout& layout,
                 const examples::Selection& selection, const examples::Comparison& comparison,
                 const KernelUse& use)
{
    const int length = 1 << layout.order;
    std::printf("picture        %s: %d x %d pixels, %d-bit %s%s\n",
                examples::printable(options.input).c_str(), picture.width, picture.height,
                picture.depth, picture.colors() == 1 ? "grey" : "colour",
                picture.hasAlpha() ? " and alpha" : "");
    std::printf("blocks         %d x %d pixels (order %d), %d across and %d down, %s\n", length,
                length, layout.order, layout.across, layout.down,
                layout.planes == 1 ? "one plane" : "luma and two of chroma");
    std::printf("kept           %zu of %zu coefficients (share %.6g), magnitudes from %.4g\n",
                selection.kept, selection.total,
                static_cast<double>(selection.kept) / static_cast<double>(selection.total),
                selection.smallest);
    if (comparison.meanSquare == 0)
        std::printf("PSNR           infinite: rebuilt exactly\n");
    else
        std::printf("PSNR           %.2f dB\n", signalToNoise(comparison, picture.peak()));
    std::printf("largest error  %d of %d\n", comparison.largest, picture.peak());
    std::printf("speed          %.3g million transforms per second (%lld of length %d, there and "
                "back, in %.3g ms)\n",
                static_cast<double>(use.transforms) / std::max(use.seconds, 1e-9) / 1e6,
                static_cast<long long>(use.transforms), length, use.seconds * 1e3);
    std::printf("rebuilt        %s\n", examples::printable(options.output).c_str());
}

} // namespace hadamard
