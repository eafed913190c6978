// rvngenmx_bench: our complex DFT kernels beside FFTW and KissFFT, one table a precision.
//
// Usually run by tools/bench, which builds it and draws the plots; tools/bench --help lists the
// options.

#include "accuracy.h"
#include "contenders.h"
#include "machine.h"
#include "measure.h"
#include "options.h"
#include "table.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace rvn::bench
{

namespace
{

// As in the names of the kernels; also the name of the data file and of the plots.
template <typename Element> std::string transformName(const Options& options)
{
    const bool forward = options.direction == Direction::Forward;
    return std::string(forward ? "DFTFwd" : "DFTInv") + "_CToC_" +
           (std::is_same_v<Element, Rvn32fc> ? "32fc" : "64fc");
}

bool inPlace(const Options& options)
{
    return options.placement == Placement::InPlace;
}

void printMachineAndMethod(const Options& options)
{
    for (const std::string& line : machineLines())
        std::printf("%s\n", line.c_str());
    std::printf(
        "method    medians of %d repetitions of %g s, contenders interleaved, hot caches; a "
        "ratio is\n          taken within a repetition, peer over ours\n",
        options.repetitions, options.seconds);
    std::printf("          ours: RvnScaleNone, which multiplies by 1; FFTW: FFTW_PATIENT, scalar: "
                "FFTW_NO_SIMD\n");
    if (inPlace(options))
        std::printf("          in place on zeros, every call waits for the one before; "
                    "KissFFT copies\n");
}

template <typename Element>
Row measureLength(Buffers<Element>& buffers, int length, const Options& options)
{
    const std::vector<Contender> all =
        contenders(buffers, length, options.direction, options.placement);

    Row row = {.length = length, .figures = {}};
    for (const Contender& contender : all)
        row.figures.push_back({.timing = {},
                               .rmsError = relativeRmsError(contender, buffers, length,
                                                            options.direction, options.placement)});

    fillForTiming(buffers, options.placement);
    const std::vector<Timing> timings = measure(all, options.repetitions, options.seconds);
    for (std::size_t i = 0; i < all.size(); ++i)
        row.figures[i].timing = timings[i];
    return row;
}

template <typename Element> void measurePrecision(const Options& options)
{
    const std::string name = transformName<Element>(options);
    const std::string title = name + (inPlace(options) ? ", in place" : ", out of place");
    const Names names = contenderNames<Element>();
    const auto buffers = std::make_unique<Buffers<Element>>();

    std::printf("\n%s\n\n", title.c_str());
    printHead(names);
    std::vector<Row> rows;
    for (const int length : options.lengths) {
        rows.push_back(measureLength(*buffers, length, options));
        printRow(rows.back());
    }
    printSummary(names, rows, options.limits);

    if (!options.output.empty()) {
        const std::string file = name + (inPlace(options) ? "_in_place" : "") + ".dat";
        writeData(options.output + "/" + file, title, names, rows);
    }
}

void run(const Options& options)
{
    printMachineAndMethod(options);
    for (const Precision precision : options.precisions) {
        if (precision == Precision::Double)
            measurePrecision<Rvn64fc>(options);
        else
            measurePrecision<Rvn32fc>(options);
    }
}

} // namespace

} // namespace rvn::bench

int main(int count, char* arguments[])
{
    try {
        const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
        rvn::bench::run(rvn::bench::parseOptions(all.subspan(1)));
        return 0;
    } catch (const std::invalid_argument& refused) {
        std::fprintf(stderr, "rvngenmx_bench: %s\n", refused.what());
        return 2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "rvngenmx_bench: %s\n", failure.what());
        return 1;
    }
}
