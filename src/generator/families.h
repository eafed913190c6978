// The families: from a row of a plan table to its kernel as data. What a row does not describe is
// refused with std::runtime_error, here or by requireRow().
#pragma once

#include "generator/dct4/body_plans.h"
#include "generator/dft_complex/complex_plans.h"
#include "generator/dft_real/real_plans.h"
#include "generator/files.h"
#include "generator/hartley/hartley_plans.h"
#include "generator/kernel.h"

namespace rvn::generator
{

// Forward and inverse: inputs and outputs are the scalars 2n and 2n + 1 of element n.
Kernel complexKernel(const ComplexPlan& plan, Format format);

// The three layouts: the scalars of the spectrum are R(0), R(1), I(1), R(2), I(2), ... and, for
// even length, R(length/2).
Kernel forwardRealKernel(const ForwardPlan& plan, Format format);
Kernel inverseRealKernel(const InversePlan& plan, Format format);

Kernel hartleyKernel(const HartleyPlan& plan, Format format);

// 2^order points, straight through or in passes over work memory.
Kernel walshHadamardKernel(int order, Format format);

// A body of the DCT-IV engine:
//
//     Direct    inputs x[0] to x[N - 1]; outputs X[0] to X[N - 1]
//     Odd       inputs u[-L/2] to u[L/2 - 1]; outputs Re Y(0), Im Y(0), Re Y(1), ...
//     TopRow    inputs: r real parts, r imaginary parts, then the (cosine, sine) pairs of the
//               twiddles in the order of the table; outputs W[-r] to W[r - 1]
//     InnerRow  inputs: r real parts, r imaginary parts, then the pairs in the order of the tables,
//               those of the first stage first; outputs Re, Im of D[s] and of conj D[r - 1 - s],
//               for s = 0 to r/2 - 1
Kernel engineKernel(const BodyPlan& plan, Format format);

// What the engine includes of them: their declarations, and the table of the bodies of its modes.
GeneratedFile engineHeader();

// All of them, by precision, family and length.
std::vector<Kernel> everyKernel();

} // namespace rvn::generator
