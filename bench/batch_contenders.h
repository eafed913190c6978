// The contenders over many transforms of one length, forward and out of place: our loops and FFTW's
// batched plans.
#pragma once

#include "accuracy.h"
#include "contender.h"
#include "direct_sum.h"
#include "kernels.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <vector>

// How the signals lie, and their spectra likewise: one behind the other, or each in a column of a
// matrix, whose width is then the stride.
struct Arrangement {
    const char* name;
    bool areColumns;
    int count;
};

// With 256 columns the elements of a column fall on few places of a cache, with 272 on many.
inline constexpr std::array<Arrangement, 3> arrangements = {
    {{"256 rows", false, 256}, {"256 columns", true, 256}, {"272 columns", true, 272}}};
inline constexpr int largestCount = 272;

// Source and target are shifted against each other in a page.
template <typename Real> struct alignas(4096) Batch {
    std::array<Real, std::size_t(2 * longestLength * largestCount)> source;
    std::array<std::byte, 2112> gap;
    std::array<Real, std::size_t(2 * longestLength * largestCount)> target;
};

// What differs between the transforms: what a signal consists of, how many pairs its spectrum has,
// our kernel, the sum of the definition.
template <typename R> struct ComplexBatch {
    using Real = R;
    using Sample = Pair<R>;
    static constexpr const char* name = std::is_same_v<R, float> ? "CToC_32fc" : "CToC_64fc";
    static int bins(int length) { return length; }
    static Kernel<Sample> kernel(int length) { return fwdCToC.of<R>(length); }
    static Numbers exact(const Numbers& x) { return directComplexDft(x, Direction::Forward); }
};

template <typename R> struct RealBatch {
    using Real = R;
    using Sample = R;
    static constexpr const char* name = std::is_same_v<R, float> ? "RToCCS_32f" : "RToCCS_64f";
    static int bins(int length) { return length / 2 + 1; }
    static Kernel<Sample> kernel(int length) { return fwdRToCcs.of<R>(length); }
    static Numbers exact(const Numbers& x) { return directRealDft(x); }
};

// Ours first, then those of fftwVariants. Planning writes into the arrays.
template <typename Transform>
std::vector<Contender> batchContenders(Batch<typename Transform::Real>& batch, int length,
                                       const Arrangement& arrangement);

// Random signals and their spectra.
template <typename Transform>
Problem<typename Transform::Real> drawBatch(int length, const Arrangement& arrangement,
                                            Random& random);
