// The printed table of a series.
//
// A ratio is the time of a peer over our time: how many times as fast ours is. It is the median
// over the rounds and can differ a little from the quotient of the two median times.
#pragma once

#include "series.h"

#include <vector>

void printHead(const Layout& layout);
void printRow(const Layout& layout, const Row& row);

// Under the rows: the mean and the worst ratio, over all rows and over the ranges of the layout;
// our other contenders against the first one; the mean and the largest of the extra figures; and
// the sizes whose ratio is below a limit.
void printSummary(const Layout& layout, const std::vector<Row>& rows,
                  const std::vector<double>& limits);
