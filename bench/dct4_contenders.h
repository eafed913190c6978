// The contenders of the DCT-IV: our planned transform and its peers, each ready to transform the
// same two arrays.
#pragma once

#include "accuracy.h"
#include "contender.h"
#include "dct4_buffers.h"
#include "options.h"

#include <vector>

template <typename Real> struct Dct4Entrant {
    Contender contender;
    Draw<Real> draw; // the problems that it can be given
    double planning; // microseconds
};

inline constexpr int largestPatientSize = 1 << 14; // beyond it FFTW plans with FFTW_MEASURE

// Of these bytes is the memory that the buffers keep for our plan.
template <typename Real> std::size_t dct4PlanBytes(int size);

// The names in the order of dct4Entrants(); the first one is ours.
Names dct4ContenderNames();

// Planning writes into the buffers, which outlive the entrants.
template <typename Real>
std::vector<Dct4Entrant<Real>> dct4Entrants(const Dct4Buffers<Real>& buffers, int size,
                                            const Options& options);
