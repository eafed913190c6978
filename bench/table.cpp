// Formatting only: every figure is computed elsewhere, but for means and extremes over the rows.

#include "table.h"

#include "means.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
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

// The rows that have a value, and what it is.
struct Column {
    std::vector<const Row*> rows;
    std::vector<double> values;

    template <typename Has, typename Get>
    Column(const std::vector<Row>& all, const Has& has, const Get& get)
    {
        for (const Row& row : all)
            if (has(row)) {
                rows.push_back(&row);
                values.push_back(get(row));
            }
    }
    // "1.23 at length 5": the value that is extreme by that order.
    template <typename Order>
    std::string extreme(const Layout& layout, const char* format, const Order& order) const
    {
        const auto at = std::ranges::max_element(values, order) - values.begin();
        return text(values[at], format) + " at " + layout.size + " " +
               std::to_string(rows[at]->sizes.front());
    }
};

Column ratios(const std::vector<Row>& rows, std::size_t contender)
{
    return {rows, [=](const Row& row) { return contender < row.timings.size(); },
            [=](const Row& row) { return ratio(row, contender); }};
}

// Our own contenders behind the first one, their times against its time.
void printOwn(const Layout& layout, const std::vector<Row>& rows, std::size_t own)
{
    const Column all = ratios(rows, own);
    std::printf("    %-11s  geometric mean %.3f, largest %s\n", layout.contenders[own].c_str(),
                geometricMean(all.values), all.extreme(layout, timeFormat, std::less<>()).c_str());
}

void printAllRatios(const Layout& layout, const std::vector<Row>& rows)
{
    for (std::size_t peer = layout.firstPeer; peer < layout.contenders.size(); ++peer) {
        const Column timed = ratios(rows, peer);
        double spread = 0;
        for (const Row* row : timed.rows)
            spread = std::max(spread, row->timings[peer].spread);
        if (!timed.rows.empty())
            std::printf("    %-11s  geometric mean %.3f, worst %s; quartiles of the rounds within "
                        "%.1f %%%s\n",
                        layout.contenders[peer].c_str(), geometricMean(timed.values),
                        timed.extreme(layout, timeFormat, std::greater<>()).c_str(), 100 * spread,
                        timed.rows.size() < rows.size()
                            ? ("; " + std::to_string(timed.rows.size()) + " of them").c_str()
                            : "");
    }
}

// Nothing for a range that has no row, or all of them.
void printRange(const Layout& layout, const std::vector<Row>& all, const SizeRange& range)
{
    std::vector<Row> rows;
    std::ranges::copy_if(all, std::back_inserter(rows), [=](const Row& row) {
        return row.sizes.front() >= range.first && row.sizes.front() <= range.last;
    });
    if (rows.empty() || rows.size() == all.size())
        return;
    std::printf("times as fast as, over the %zu from %d to %d\n", rows.size(), range.first,
                range.last);
    printAllRatios(layout, rows);
}

void printExtra(const Layout& layout, const std::vector<Row>& all, std::size_t group, std::size_t i)
{
    const Extra& extra = layout.extras[group];
    const Column found(
        all, [=](const Row& row) { return i < row.extras[group].size(); },
        [=](const Row& row) { return row.extras[group][i]; });
    if (!found.rows.empty())
        std::printf("    %-11s  %s %s, largest %s\n", extra.names[i].c_str(),
                    extra.meanName.c_str(), text(extra.mean(found.values), extra.format).c_str(),
                    found.extreme(layout, extra.format, std::less<>()).c_str());
}

// "size ratio" for each size whose ratio is below the limit.
void printBelow(const Layout& layout, const std::vector<Row>& all, std::size_t peer, double limit)
{
    const Column timed = ratios(all, peer);
    if (timed.rows.empty())
        return;
    std::size_t count = 0;
    std::printf("below %g times as fast as %s:", limit, layout.contenders[peer].c_str());
    for (std::size_t i = 0; i < timed.rows.size(); ++i)
        if (timed.values[i] < limit)
            std::printf("%s%2d %.2f", count++ % sizesInALine == 0 ? "\n    " : " | ",
                        timed.rows[i]->sizes.front(), timed.values[i]);
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
