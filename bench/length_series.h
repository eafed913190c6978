// The series of a transform by length, whatever the transform: its contenders are checked against a
// direct sum and timed against each other.
#pragma once

#include "accuracy.h"
#include "buffers.h"
#include "contender.h"
#include "limit.h"
#include "options.h"
#include "series.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// A contender, and the problems that it can be given.
template <typename Real> struct Entrant {
    Contender contender;
    Draw<Real> draw;
};

template <typename Real> using Entrants = std::vector<Entrant<Real>>;

template <typename Real> struct LengthTransform {
    std::string name;      // as in the names of the kernels
    std::size_t firstPeer; // those before it are ours

    // All of them, ours first; at odd lengths the last ones may be missing. Planning writes into
    // the buffers, which outlive the entrants.
    std::function<Entrants<Real>(Buffers<Real>& buffers, int length)> entrants;

    // The operations of ours.
    std::function<Work(int length)> work;
};

// A row is a length: what the contenders take, how far they are from the limits, and how exact the
// first one and the peers are.
template <typename Real>
Series lengthSeries(const LengthTransform<Real>& transform, const Options& options);
