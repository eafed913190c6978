// Formatting only: every figure is computed elsewhere, but for ratios and their means.

#include "table.h"

#include "machine.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace rvn::bench
{

namespace
{

// The errors that the table shows: ours and that of FFTW scalar. The data file has all.
constexpr std::size_t printedErrors = 2;

constexpr int nameWidth = 12; // of a column
constexpr std::size_t lengthsInALine = 10;

double ratio(const Row& row, std::size_t peer)
{
    return row.figures[peer].timing.ratio;
}

double geometricMean(const std::vector<Row>& rows, std::size_t peer)
{
    double sum = 0;
    for (const Row& row : rows)
        sum += std::log(ratio(row, peer));
    return std::exp(sum / static_cast<double>(rows.size()));
}

const Row& worst(const std::vector<Row>& rows, std::size_t peer)
{
    return *std::ranges::min_element(rows, {}, [=](const Row& row) { return ratio(row, peer); });
}

// The root of the mean square over the lengths.
double meanError(const std::vector<Row>& rows, std::size_t contender)
{
    double sum = 0;
    for (const Row& row : rows)
        sum += row.figures[contender].rmsError * row.figures[contender].rmsError;
    return std::sqrt(sum / static_cast<double>(rows.size()));
}

double largestSpread(const std::vector<Row>& rows, std::size_t peer)
{
    double largest = 0;
    for (const Row& row : rows)
        largest = std::max(largest, row.figures[peer].timing.spread);
    return largest;
}

// "length ratio" for each length below the limit.
void printBelow(const std::string& name, double limit, const std::vector<Row>& rows,
                std::size_t peer)
{
    std::size_t count = 0;
    std::printf("below %g times as fast as %s:", limit, name.c_str());
    for (const Row& row : rows)
        if (ratio(row, peer) < limit)
            std::printf("%s%2d %.2f", count++ % lengthsInALine == 0 ? "\n    " : " | ", row.length,
                        ratio(row, peer));
    std::printf("%s\n", count == 0 ? " no length" : "");
}

} // namespace

void printHead(const Names& names)
{
    const int peers = static_cast<int>(names.size()) - 1;
    std::printf("%3s |%*s |%*s |%*s\n", "", nameWidth * (peers + 1), "nanoseconds a call",
                nameWidth * peers, "times as fast as", nameWidth * static_cast<int>(printedErrors),
                "relative rms error");
    std::printf("%3s |", "N");
    for (const std::string& name : names)
        std::printf("%*s", nameWidth, name.c_str());
    std::printf(" |");
    for (std::size_t peer = 1; peer < names.size(); ++peer)
        std::printf("%*s", nameWidth, names[peer].c_str());
    std::printf(" |");
    for (std::size_t i = 0; i < printedErrors; ++i)
        std::printf("%*s", nameWidth, names[i].c_str());
    std::printf("\n");
}

void printRow(const Row& row)
{
    std::printf("%3d |", row.length);
    for (const Figure& figure : row.figures)
        std::printf("%*.2f", nameWidth, figure.timing.nanoseconds);
    std::printf(" |");
    for (std::size_t peer = 1; peer < row.figures.size(); ++peer)
        std::printf("%*.2f", nameWidth, ratio(row, peer));
    std::printf(" |");
    for (std::size_t i = 0; i < printedErrors; ++i)
        std::printf("%*.2e", nameWidth, row.figures[i].rmsError);
    std::printf("\n");
    std::fflush(stdout);
}

void printSummary(const Names& names, const std::vector<Row>& rows,
                  const std::vector<double>& limits)
{
    std::printf("\ntimes as fast as, over %zu lengths\n", rows.size());
    for (std::size_t peer = 1; peer < names.size(); ++peer) {
        const Row& slowest = worst(rows, peer);
        std::printf("    %-11s  geometric mean %.3f, worst %.2f at length %d; quartiles of the "
                    "rounds within %.1f %%\n",
                    names[peer].c_str(), geometricMean(rows, peer), ratio(slowest, peer),
                    slowest.length, 100 * largestSpread(rows, peer));
    }
    std::printf("relative rms error over all of them\n");
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("    %-11s  %.2e\n", names[i].c_str(), meanError(rows, i));
    for (const double limit : limits)
        for (std::size_t peer = 1; peer < names.size(); ++peer)
            printBelow(names[peer], limit, rows, peer);
}

void writeData(const std::string& path, const std::string& title, const Names& names,
               const std::vector<Row>& rows)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> owner(std::fopen(path.c_str(), "w"),
                                                                std::fclose);
    std::FILE* const file = owner.get();
    if (file == nullptr)
        throw std::runtime_error("cannot write " + path);

    std::fprintf(file, "# %s\n# %s\n", title.c_str(), processor().c_str());
    std::fprintf(file, "N");
    for (const std::string& name : names)
        std::fprintf(file, " \"%s\"", name.c_str());
    for (std::size_t peer = 1; peer < names.size(); ++peer)
        std::fprintf(file, " \"%s\"", names[peer].c_str());
    for (const std::string& name : names)
        std::fprintf(file, " \"%s\"", name.c_str());
    std::fprintf(file, "\n");

    for (const Row& row : rows) {
        std::fprintf(file, "%d", row.length);
        for (const Figure& figure : row.figures)
            std::fprintf(file, " %.4f", figure.timing.nanoseconds);
        for (std::size_t peer = 1; peer < names.size(); ++peer)
            std::fprintf(file, " %.4f", ratio(row, peer));
        for (const Figure& figure : row.figures)
            std::fprintf(file, " %.4e", figure.rmsError);
        std::fprintf(file, "\n");
    }
    if (std::fflush(file) != 0)
        throw std::runtime_error("cannot write " + path);
}

} // namespace rvn::bench
