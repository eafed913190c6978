// Formatting only: every figure is computed elsewhere, but for means and extremes over the rows.

#include "table.h"

#include "means.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace
{

constexpr int nameWidth = 12; // of a column
constexpr std::size_t sizesInALine = 10;
constexpr const char* timeFormat = "%.2f"; // of ratios too

int groupWidth(std::size_t columns)
{
    return nameWidth * static_cast<int>(columns);
}

std::string text(double value, const char* format)
{
    std::array<char, 64> buffer = {};
    std::snprintf(buffer.data(), buffer.size(), format, value);
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

std::vector<Row> rowsWithin(const std::vector<Row>& rows, const SizeRange& range)
{
    std::vector<Row> within;
    std::ranges::copy_if(rows, std::back_inserter(within), [=](const Row& row) {
        return row.sizes.front() >= range.first && row.sizes.front() <= range.last;
    });
    return within;
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

void printAllRatios(const Layout& layout, const std::vector<Row>& rows)
{
    for (std::size_t peer = layout.firstPeer; peer < layout.contenders.size(); ++peer)
        printRatios(layout, rows, peer);
}

// Nothing for a range that has no row, or all of them.
void printRange(const Layout& layout, const std::vector<Row>& all, const SizeRange& range)
{
    const std::vector<Row> rows = rowsWithin(all, range);
    if (rows.empty() || rows.size() == all.size())
        return;
    std::printf("times as fast as, over the %zu from %d to %d\n", rows.size(), range.first,
                range.last);
    printAllRatios(layout, rows);
}

void printExtra(const Layout& layout, const std::vector<Row>& all, std::size_t group, std::size_t i)
{
    const Extra& extra = layout.extras[group];
    std::vector<Row> rows;
    std::ranges::copy_if(all, std::back_inserter(rows),
                         [=](const Row& row) { return i < row.extras[group].size(); });
    if (rows.empty())
        return;
    const auto valueOf = [=](const Row& row) { return row.extras[group][i]; };
    const Row& largest = *std::ranges::max_element(rows, {}, valueOf);
    std::printf(
        "    %-11s  %s %s, largest %s at %s %d\n", extra.names[i].c_str(), extra.meanName.c_str(),
        text(extra.mean(column(rows, valueOf)), extra.format).c_str(),
        text(valueOf(largest), extra.format).c_str(), layout.size.c_str(), largest.sizes.front());
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

    for (const SizeColumn& column : layout.sizes)
        std::printf("%*s", column.width, "");
    std::printf(" |%*s |%*s", groupWidth(layout.contenders.size()), "nanoseconds a call",
                groupWidth(layout.contenders.size() - layout.firstPeer), "times as fast as");
    for (const Extra& extra : layout.extras)
        std::printf(" |%*s", groupWidth(extra.printed), extra.title.c_str());
    std::printf("\n");

    for (const SizeColumn& column : layout.sizes)
        std::printf("%*s", column.width, column.name.c_str());
    printCells(layout.contenders);
    printCells({peers, layout.contenders.end()});
    for (const Extra& extra : layout.extras)
        printCells({extra.names.begin(),
                    extra.names.begin() + static_cast<std::ptrdiff_t>(extra.printed)});
    std::printf("\n");
}

void printRow(const Layout& layout, const Row& row)
{
    std::vector<std::string> times(layout.contenders.size(), "-");
    std::vector<std::string> ratios(layout.contenders.size() - layout.firstPeer, "-");
    for (std::size_t i = 0; i < row.timings.size(); ++i)
        times[i] = text(row.timings[i].nanoseconds, timeFormat);
    for (std::size_t i = layout.firstPeer; i < row.timings.size(); ++i)
        ratios[i - layout.firstPeer] = text(ratio(row, i), timeFormat);

    for (std::size_t i = 0; i < row.sizes.size(); ++i)
        std::printf("%*d", layout.sizes[i].width, row.sizes[i]);
    printCells(times);
    printCells(ratios);
    for (std::size_t group = 0; group < layout.extras.size(); ++group) {
        const Extra& extra = layout.extras[group];
        std::vector<std::string> figures;
        for (std::size_t i = 0; i < extra.printed; ++i)
            figures.push_back(text(row.extras[group][i], extra.format));
        printCells(figures);
    }
    std::printf("\n");
    std::fflush(stdout);
}

void printSummary(const Layout& layout, const std::vector<Row>& rows,
                  const std::vector<double>& limits)
{
    std::printf("\ntimes as fast as, over %zu %ss\n", rows.size(), layout.size.c_str());
    printAllRatios(layout, rows);
    for (const SizeRange& range : layout.ranges)
        printRange(layout, rows, range);
    if (layout.firstPeer > 1)
        std::printf("time over that of %s\n", layout.contenders.front().c_str());
    for (std::size_t own = 1; own < layout.firstPeer; ++own)
        printOwn(layout, rows, own);
    for (std::size_t group = 0; group < layout.extras.size(); ++group) {
        std::printf("%s\n", layout.extras[group].summary.c_str());
        for (std::size_t i = 0; i < layout.extras[group].names.size(); ++i)
            printExtra(layout, rows, group, i);
    }
    for (const double limit : limits)
        for (std::size_t peer = layout.firstPeer; peer < layout.contenders.size(); ++peer)
            printBelow(layout, rows, peer, limit);
}
