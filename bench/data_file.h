// The data file of a series, for gnuplot.
#pragma once

#include "series.h"

#include <string>
#include <vector>

// Three comments and a table:
//
//     # the title
//     # the processor
//     # the name of a size, the numbers of times and ratios, then of each group of extra figures
//       how many there are and their key, all on this line
//
// The table has a line of quoted names, then a line for each row: the size, the times, the ratios,
// the extra figures, "-" for one that is missing. Throws std::runtime_error if the file cannot be
// written.
void writeData(const std::string& path, const std::string& title, const Layout& layout,
               const std::vector<Row>& rows);
