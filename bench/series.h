// A series: one transform over its sizes, a table of its own. What its columns are, and how a row
// of it is measured; the printed table and the data file need to know no more.
#pragma once

#include "contender.h"
#include "means.h"
#include "measure.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// A group of figures beside the times.
struct Extra {
    std::string title;   // over the columns
    std::string summary; // the same, in the lines under the table
    std::string key;     // in the data file and the name of the plot
    Names names;         // of the columns
    std::size_t printed; // so many columns the table shows; the data file has all
    const char* format;  // of a figure, for printf
    std::string meanName = "geometric mean";
    double (*mean)(const std::vector<double>& values) = geometricMean; // over the rows
};

struct SizeColumn {
    std::string name;
    int width; // with a blank before the longest
};

// Both ends included.
struct SizeRange {
    int first;
    int last;
};

struct Layout {
    std::string size; // what a size is: length, order, size
    std::vector<SizeColumn> sizes;
    Names contenders;              // ours first
    std::size_t firstPeer;         // those before it are ours and get no ratio
    std::vector<SizeRange> ranges; // of the rows whose ratios are summed up beside those of all
    std::vector<Extra> extras;
};

struct Row {
    std::vector<int> sizes;      // the first one names the row
    std::vector<Timing> timings; // of the contenders; the last ones are missing if they cannot run
    std::vector<std::vector<double>> extras; // of each group, likewise
};

struct Series {
    std::string name; // as in the names of the kernels
    Layout layout;
    std::vector<int> sizes;
    std::function<Row(int size)> measure;
};
