// The printed table and the data file of one precision.
//
// A ratio is the time of a peer over our time: how many times as fast ours is. It is the median
// over the rounds and can differ a little from the quotient of the two median times.
#pragma once

#include "measure.h"

#include <string>
#include <vector>

namespace rvn::bench
{

// One contender at one length.
struct Figure {
    Timing timing;
    double rmsError;
};

// The contenders at one length, ours first.
struct Row {
    int length;
    std::vector<Figure> figures;
};

using Names = std::vector<std::string>;

void printHead(const Names& names);
void printRow(const Row& row);

// Under the rows: the mean and the worst ratio, and the lengths whose ratio is below a limit.
void printSummary(const Names& names, const std::vector<Row>& rows,
                  const std::vector<double>& limits);

// Columns for gnuplot under a line of their quoted names: N; the times, ours first; the ratios of
// the peers; the errors, ours first. Throws std::runtime_error if the file cannot be written.
void writeData(const std::string& path, const std::string& title, const Names& names,
               const std::vector<Row>& rows);

} // namespace rvn::bench
