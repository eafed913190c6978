// A row is a length: what the contenders take, and how exact they are.

#include "complex_series.h"

#include "complex_accuracy.h"
#include "complex_contenders.h"
#include "input.h"
#include "means.h"

#include <memory>
#include <type_traits>

namespace rvn::bench
{

namespace
{

template <typename Element> std::string transformName(Direction direction)
{
    return std::string(direction == Direction::Forward ? "DFTFwd" : "DFTInv") + "_CToC_" +
           (std::is_same_v<Element, Rvn32fc> ? "32fc" : "64fc");
}

Layout layout(const Names& contenders)
{
    return {.size = "length",
            .sizes = {"N"},
            .contenders = contenders,
            .firstPeer = 1,
            .extra = {.title = "relative rms error",
                      .summary = "relative rms error over all of them",
                      .key = "error",
                      .names = contenders,
                      .printed = 2, // ours and that of FFTW scalar
                      .scientific = true,
                      .meanName = "rms",
                      .mean = rootMeanSquare}};
}

template <typename Element>
Row measureLength(ComplexBuffers<Element>& buffers, int length, const Options& options)
{
    const std::vector<Contender> contenders =
        complexContenders(buffers, length, options.direction, options.placement);

    Row row = {.sizes = {length}, .timings = {}, .extras = {}};
    for (const Contender& contender : contenders)
        row.extras.push_back(
            relativeRmsError(contender, buffers, length, options.direction, options.placement));
    fillForTiming<Element>(buffers.source, options.placement);
    row.timings = measure(contenders, options.repetitions, options.seconds);
    return row;
}

template <typename Element> Series series(const Options& options)
{
    const auto buffers = std::make_shared<ComplexBuffers<Element>>();
    return {.name = transformName<Element>(options.direction),
            .layout = layout(complexContenderNames<Element>()),
            .sizes = options.lengths,
            .measure = [=](int length) { return measureLength(*buffers, length, options); }};
}

} // namespace

std::vector<std::string> complexMethod(const Options& options)
{
    std::vector<std::string> lines = {"DFT       ours: RvnScaleNone, which multiplies by 1; FFTW: "
                                      "FFTW_PATIENT, scalar: FFTW_NO_SIMD"};
    if (options.placement == Placement::InPlace)
        lines.push_back("          in place KissFFT copies");
    return lines;
}

Series complexSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<Rvn64fc>(options) : series<Rvn32fc>(options);
}

} // namespace rvn::bench
