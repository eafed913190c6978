// The graphs of the fixed bodies.
#pragma once

#include "dct4/plans.h"
#include "kernelgen/graph.h"

#include <string>

namespace rvn::dct4
{

// "direct", "odd", "topRow" or "innerRow", as in the names of the functions.
std::string nameOf(BodyKind kind);

// The graph of a body. Throws std::runtime_error when it does not have the counts of its plan.
//
//   Direct    inputs x[0] to x[N - 1]; outputs X[0] to X[N - 1]
//   Odd       inputs u[-L/2] to u[L/2 - 1]; outputs Re Y(0), Im Y(0), Re Y(1), ...
//   TopRow    inputs: r real parts, r imaginary parts, then the (cosine, sine) pairs of the
//             twiddles in the order of the table; outputs W[-r] to W[r - 1]
//   InnerRow  inputs: r real parts, r imaginary parts, then the pairs in the order of the tables,
//             those of the first stage first; outputs Re, Im of D[s] and of conj D[r - 1 - s], for
//             s = 0 to r/2 - 1
kernelgen::Graph bodyGraph(const BodyPlan& plan);

} // namespace rvn::dct4
