// The families of transforms, each a series: its kernels beside their peers.
#pragma once

#include "length_series.h"

#include <string>
#include <vector>

// How they are measured, for the head of the output.
std::vector<std::string> complexMethod(const Options& options);
std::vector<std::string> realMethod(const Options& options);
std::vector<std::string> hartleyMethod(const Options& options);
std::vector<std::string> whtMethod(const Options& options);
std::vector<std::string> dct4Method(const Options& options);

Series complexSeries(const Options& options, Precision precision);
Series realSeries(const Options& options, Precision precision);
Series hartleySeries(const Options& options, Precision precision);
Series whtSeries(const Options& options, Precision precision);
Series dct4Series(const Options& options, Precision precision);

// The contenders of the complex DFT: our kernel and its peers.
template <typename Real>
Entrants<Real> complexEntrants(Buffers<Real>& buffers, int length, Direction direction,
                               Placement placement);
