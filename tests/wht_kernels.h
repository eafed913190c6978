// The Walsh-Hadamard kernels as rows of one table, and the plain loop that they must equal.
#pragma once

#include "rvngenmx.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace rvn::tests
{

template <typename Real> struct WhtKernel {
    std::string name;
    int order;
    RvnStatus (*run)(const Real*, Real*, RvnScaleFlag, void*);

    int points() const { return 1 << order; }
};

#define RVN_TEST_WHT_KERNEL(k, suffix, unused1, unused2)                                           \
    {"rvngWHT_" #k "_" #suffix, k, rvngWHT_##k##_##suffix},

template <typename Real> const std::vector<WhtKernel<Real>>& everyWhtKernel();

template <> inline const std::vector<WhtKernel<float>>& everyWhtKernel()
{
    static const std::vector<WhtKernel<float>> kernels = {
        RVNG_ORDERS_1_TO_13(RVN_TEST_WHT_KERNEL, 32f, unused, unused)};
    return kernels;
}

template <> inline const std::vector<WhtKernel<double>>& everyWhtKernel()
{
    static const std::vector<WhtKernel<double>> kernels = {
        RVNG_ORDERS_1_TO_13(RVN_TEST_WHT_KERNEL, 64f, unused, unused)};
    return kernels;
}

inline constexpr RvnScaleFlag everyWhtFlag[] = {RvnScaleFwdByN, RvnScaleInvByN, RvnScaleBySqrtN,
                                                RvnScaleNone};

// Elements of work memory by order: none up to 7.
inline int workElements(int order)
{
    static constexpr int elements[] = {256, 512, 1024, 2048, 4096 + 256, 8192 + 1024};
    return order < 8 ? 0 : elements[order - 8];
}

// 2^(-order/2) as the kernels hold it: a power of two, or by its bit pattern at order 1 the value
// of 1/sqrt(2) after two roundings.
template <typename Real> Real whtScale(int order, RvnScaleFlag flag)
{
    if (flag == RvnScaleNone)
        return 1;
    if (flag != RvnScaleBySqrtN)
        return std::ldexp(Real{1}, -order);
    const double root = order % 2 == 0 ? 1.0 : std::bit_cast<double>(0x3FE6A09E667F3BCCULL);
    return static_cast<Real>(std::ldexp(root, -(order / 2)));
}

template <typename Real> std::vector<Real> randomReals(int count, unsigned seed)
{
    std::mt19937 generator(seed);
    std::uniform_real_distribution<double> uniform(-1, 1);
    std::vector<Real> values(count);
    for (Real& value : values)
        value = static_cast<Real>(uniform(generator));
    return values;
}

// One ascending loop of butterflies, then one multiplication.
template <typename Real>
std::vector<Real> whtByLoop(std::vector<Real> a, int order, RvnScaleFlag flag)
{
    const int N = 1 << order;
    for (int h = 1; h < N; h *= 2)
        for (int i = 0; i < N; ++i)
            if ((i & h) == 0) {
                const Real lower = a[i];
                const Real upper = a[i + h];
                a[i] = lower + upper;
                a[i + h] = lower - upper;
            }
    for (Real& value : a)
        value = value * whtScale<Real>(order, flag);
    return a;
}

} // namespace rvn::tests
