// Formatting only: every figure is computed elsewhere, but for means and extremes over the rows.

#include "table.h"

#include "means.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace rvn::bench
{

namespace
{

constexpr int nameWidth = 12; // of a column
constexpr std::size_t sizesInALine = 10;

int sizeWidth(const std::string& name)
{
    return std::max(3, static_cast<int>(name.size()) + 1);
}

int groupWidth(std::size_t columns)
{
    return nameWidth * static_cast<int>(columns);
}

std::string text(double value, bool scientific)
{
    std::array<char, 64> buffer = {};
    std::snprintf(buffer.data(), buffer.size(), scientific ? "%.2e" : "%.2f", value);
    return buffer.data();
}

void printCells(const std::vector<std::string>& cells)
{
    std::printf(" |");
    for (const std::string& cell : cells)
        std::printf("%*s", nameWidth, cell.c_str());
}

double ratio(const Row& row, std::size_t peer)
{
    return row.timings[peer].ratio;
}

// Each row's value.
template <typename Get> std::vector<double> column(const std::vector<Row>& rows, Get get)
{
    std::vector<double> values;
    for (const Row& row : rows)
        values.push_back(get(row));
    return values;
}

// The rows in which a contender has a time.
std::vector<Row> timedRows(const std::vector<Row>& rows, std::size_t contender)
{
    std::vector<Row> timed;
    std::ranges::copy_if(rows, std::back_inserter(timed),
                         [=](const Row& row) { return contender < row.timings.size(); });
    return timed;
}

// Our own contenders behind the first one, their times against its time.
void printOwn(const Layout& layout, const std::vector<Row>& rows, std::size_t own)
{
    const auto ratioOf = [=](const Row& row) { return ratio(row, own); };
    const Row& slowest = *std::ranges::max_element(rows, {}, ratioOf);
    std::printf("    %-11s  geometric mean %.3f, largest %.2f at %s %d\n",
                layout.contenders[own].c_str(), geometricMean(column(rows, ratioOf)),
                ratio(slowest, own), layout.size.c_str(), slowest.sizes.front());
}

void printRatios(const Layout& layout, const std::vector<Row>& all, std::size_t peer)
{
    const std::vector<Row> rows = timedRows(all, peer);
    if (rows.empty())
        return;
    const auto ratioOf = [=](const Row& row) { return ratio(row, peer); };
    const auto spreadOf = [=](const Row& row) { return row.timings[peer].spread; };
    const Row& slowest = *std::ranges::min_element(rows, {}, ratioOf);
    std::printf(
        "    %-11s  geometric mean %.3f, worst %.2f at %s %d; quartiles of the rounds "
        "within %.1f %%%s\n",
        layout.contenders[peer].c_str(), geometricMean(column(rows, ratioOf)), ratio(slowest, peer),
        layout.size.c_str(), slowest.sizes.front(), 100 * std::ranges::max(column(rows, spreadOf)),
        rows.size() < all.size() ? ("; " + std::to_string(rows.size()) + " of them").c_str() : "");
}

void printExtra(const Layout& layout, const std::vector<Row>& all, std::size_t i)
{
    const Extra& extra = layout.extra;
    std::vector<Row> rows;
    std::ranges::copy_if(all, std::back_inserter(rows),
                         [=](const Row& row) { return i < row.extras.size(); });
    if (rows.empty())
        return;
    const auto valueOf = [=](const Row& row) { return row.extras[i]; };
    const Row& largest = *std::ranges::max_element(rows, {}, valueOf);
    std::printf("    %-11s  %s %s, largest %s at %s %d\n", extra.names[i].c_str(),
                extra.meanName.c_str(),
                text(extra.mean(column(rows, valueOf)), extra.scientific).c_str(),
                text(valueOf(largest), extra.scientific).c_str(), layout.size.c_str(),
                largest.sizes.front());
}

// "size ratio" for each size whose ratio is below the limit.
void printBelow(const Layout& layout, const std::vector<Row>& all, std::size_t peer, double limit)
{
    const std::vector<Row> rows = timedRows(all, peer);
    if (rows.empty())
        return;
    std::size_t count = 0;
    std::printf("below %g times as fast as %s:", limit, layout.contenders[peer].c_str());
    for (const Row& row : rows)
        if (ratio(row, peer) < limit)
            std::printf("%s%2d %.2f", count++ % sizesInALine == 0 ? "\n    " : " | ",
                        row.sizes.front(), ratio(row, peer));
    std::printf("%s\n", count == 0 ? (" no " + layout.size).c_str() : "");
}

} // namespace

void printHead(const Layout& layout)
{
    const auto peers = layout.contenders.begin() + static_cast<std::ptrdiff_t>(layout.firstPeer);
    const auto printedEnd =
        layout.extra.names.begin() + static_cast<std::ptrdiff_t>(layout.extra.printed);

    for (const std::string& size : layout.sizes)
        std::printf("%*s", sizeWidth(size), "");
    std::printf(" |%*s |%*s |%*s\n", groupWidth(layout.contenders.size()), "nanoseconds a call",
                groupWidth(layout.contenders.size() - layout.firstPeer), "times as fast as",
                groupWidth(layout.extra.printed), layout.extra.title.c_str());
    for (const std::string& size : layout.sizes)
        std::printf("%*s", sizeWidth(size), size.c_str());
    printCells(layout.contenders);
    printCells({peers, layout.contenders.end()});
    printCells({layout.extra.names.begin(), printedEnd});
    std::printf("\n");
}

void printRow(const Layout& layout, const Row& row)
{
    std::vector<std::string> times(layout.contenders.size(), "-");
    std::vector<std::string> ratios(layout.contenders.size() - layout.firstPeer, "-");
    std::vector<std::string> extras;
    for (std::size_t i = 0; i < row.timings.size(); ++i)
        times[i] = text(row.timings[i].nanoseconds, false);
    for (std::size_t i = layout.firstPeer; i < row.timings.size(); ++i)
        ratios[i - layout.firstPeer] = text(ratio(row, i), false);
    for (std::size_t i = 0; i < layout.extra.printed; ++i)
        extras.push_back(text(row.extras[i], layout.extra.scientific));

    for (std::size_t i = 0; i < row.sizes.size(); ++i)
        std::printf("%*d", sizeWidth(layout.sizes[i]), row.sizes[i]);
    printCells(times);
    printCells(ratios);
    printCells(extras);
    std::printf("\n");
    std::fflush(stdout);
}

void printSummary(const Layout& layout, const std::vector<Row>& rows,
                  const std::vector<double>& limits)
{
    std::printf("\ntimes as fast as, over %zu %ss\n", rows.size(), layout.size.c_str());
    for (std::size_t peer = layout.firstPeer; peer < layout.contenders.size(); ++peer)
        printRatios(layout, rows, peer);
    if (layout.firstPeer > 1)
        std::printf("time over that of %s\n", layout.contenders.front().c_str());
    for (std::size_t own = 1; own < layout.firstPeer; ++own)
        printOwn(layout, rows, own);
    std::printf("%s\n", layout.extra.summary.c_str());
    for (std::size_t i = 0; i < layout.extra.names.size(); ++i)
        printExtra(layout, rows, i);
    for (const double limit : limits)
        for (std::size_t peer = layout.firstPeer; peer < layout.contenders.size(); ++peer)
            printBelow(layout, rows, peer, limit);
}

} // namespace rvn::bench
