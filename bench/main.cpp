// rvngenmx_bench: our kernels beside their peers, one table a transform and precision.
//
// Usually run by tools/bench, which builds it and draws the plots; tools/bench --help lists the
// options.

#include "clock.h"
#include "data_file.h"
#include "extras.h"
#include "families.h"
#include "machine.h"
#include "options.h"
#include "progress.h"
#include "series.h"
#include "studies.h"
#include "table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

struct FamilyEntry {
    Family family;
    std::vector<std::string> (*method)(const Options&);
    Series (*series)(const Options&, Precision);
};

std::vector<FamilyEntry> measuredFamilies(const Options& options)
{
    std::vector<FamilyEntry> measured = {{Family::Complex, complexMethod, complexSeries},
                                         {Family::Real, realMethod, realSeries},
                                         {Family::Hartley, hartleyMethod, hartleySeries},
                                         {Family::Wht, whtMethod, whtSeries},
                                         {Family::Dct4, dct4Method, dct4Series}};
    std::erase_if(measured, [&](const FamilyEntry& entry) {
        return std::ranges::find(options.families, entry.family) == options.families.end();
    });
    return measured;
}

bool inPlace(const Options& options)
{
    return options.placement == Placement::InPlace;
}

void print(const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        std::printf("%s\n", line.c_str());
}

void printMachineAndMethod(const Options& options)
{
    print(machineLines());
    std::printf("clock     %.2f GHz, by a chain of dependent additions\n",
                clockNow(options.seconds));
    std::printf(
        "method    medians of %d repetitions of %g s, contenders interleaved, hot caches; a "
        "ratio is\n          taken within a repetition, peer over ours\n",
        options.repetitions, options.seconds);
    if (options.studies.empty())
        print(limitMethod());
    if (inPlace(options))
        std::printf("          in place on zeros, every call waits for the one before\n");
    for (const FamilyEntry& entry : measuredFamilies(options))
        print(entry.method(options));
}

void run(const Series& series, const std::string& turn, const Options& options)
{
    const std::string title = series.name + (inPlace(options) ? ", in place" : ", out of place");
    std::printf("\n%s\n\n", title.c_str());
    printHead(series.layout);
    std::vector<Row> rows;
    Progress progress("rvngenmx_bench, " + turn + ": " + series.name, series.sizes.size());
    for (const int size : series.sizes) {
        progress.step(series.layout.size + " " + std::to_string(size));
        rows.push_back(series.measure(size));
        progress.clear();
        printRow(series.layout, rows.back());
    }
    printSummary(series.layout, rows, options.limits);

    if (!options.output.empty()) {
        const std::string file = series.name + (inPlace(options) ? "_in_place" : "") + ".dat";
        writeData(options.output + "/" + file, title, series.layout, rows);
    }
}

void runAll(const Options& options)
{
    printMachineAndMethod(options);
    for (const auto study : options.studies)
        study(options);
    const std::vector<FamilyEntry> measured = measuredFamilies(options);
    const std::string of = " of " + std::to_string(measured.size() * options.precisions.size());
    int turn = 0;
    for (const FamilyEntry& entry : measured)
        for (const Precision precision : options.precisions)
            run(entry.series(options, precision), std::to_string(++turn) + of, options);
}

} // namespace

int main(int count, char* arguments[])
{
    try {
        runAll(parseOptions(count, arguments));
        return 0;
    } catch (const std::invalid_argument& refused) {
        std::fprintf(stderr, "rvngenmx_bench: %s\n", refused.what());
        return 2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "rvngenmx_bench: %s\n", failure.what());
        return 1;
    }
}
