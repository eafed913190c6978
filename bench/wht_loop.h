// The peer of the Walsh-Hadamard kernels: one plain loop for all orders, built twice from one
// source.
#pragma once

// scale times the Walsh-Hadamard transform of 2^order numbers, bit for bit as rvngenmx.h defines
// it. src and dst are equal or do not overlap. The namespace tells how it was compiled.

// As the kernels are, scalar.
namespace scalar_loop
{
void wht(const float* src, float* dst, int order, float scale);
void wht(const double* src, double* dst, int order, double scale);
} // namespace scalar_loop

// With the compiler's vectoriser for AVX2, which the processor must have.
namespace avx2_loop
{
void wht(const float* src, float* dst, int order, float scale);
void wht(const double* src, double* dst, int order, double scale);
} // namespace avx2_loop
