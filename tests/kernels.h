// Every kernel of the library as a row of one table, and what the tests do with a row: draw a
// signal, run the kernel on it, compare bits.
//
// A kernel always writes into memory filled with NaN, so that an output it leaves out cannot pass.
#pragma once

#include "rvngenmx.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace rvn::tests
{

template <typename Element> using Scalar = decltype(Element::re);
template <typename Element> using Signal = std::vector<Element>;

template <typename Element> struct Kernel {
    std::string name;
    int length;
    bool isInverse;
    RvnStatus (*run)(const Element*, Element*, RvnScaleFlag);
    RvnStatus (*dispatch)(const Element*, Element*, int32_t, RvnScaleFlag);
};

#define RVN_TEST_KERNEL(N, transform, suffix, isInverse)                                           \
    {#transform "_" #N "_" #suffix, N, isInverse, transform##_##N##_##suffix, transform##_##suffix},

// By direction, then by length: all forward kernels of a precision, then its inverse ones.
template <typename Element> const std::vector<Kernel<Element>>& everyKernel();

template <> inline const std::vector<Kernel<Rvn32fc>>& everyKernel()
{
    static const std::vector<Kernel<Rvn32fc>> kernels = {
        RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_CToC, 32fc, false)
            RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_CToC, 32fc, true)};
    return kernels;
}

template <> inline const std::vector<Kernel<Rvn64fc>>& everyKernel()
{
    static const std::vector<Kernel<Rvn64fc>> kernels = {
        RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTFwd_CToC, 64fc, false)
            RVNG_LENGTHS_2_TO_64(RVN_TEST_KERNEL, rvngDFTInv_CToC, 64fc, true)};
    return kernels;
}

template <typename Element> const Kernel<Element>& kernelOf(int length, bool isInverse)
{
    return everyKernel<Element>().at(length - 2 + (isInverse ? 63 : 0));
}

inline constexpr RvnScaleFlag everyFlag[] = {RvnScaleFwdByN, RvnScaleInvByN, RvnScaleBySqrtN,
                                             RvnScaleNone};

// The factor S of a kernel under a flag, both roundings of 1/sqrt(N) included.
template <typename Element> Scalar<Element> scaleOf(const Kernel<Element>& kernel, int flag)
{
    const double N = kernel.length;
    if (flag == RvnScaleBySqrtN)
        return static_cast<Scalar<Element>>(1.0 / std::sqrt(N));
    const bool isScaled = flag == (kernel.isInverse ? RvnScaleInvByN : RvnScaleFwdByN);
    return static_cast<Scalar<Element>>(isScaled ? 1.0 / N : 1.0);
}

// Uniform in (-1, 1) times a power of two up to 2^spread in either direction.
template <typename Element> Signal<Element> randomSignal(int length, unsigned seed, int spread = 0)
{
    std::mt19937 generator(seed);
    const auto draw = [&] {
        const double mantissa = std::uniform_real_distribution<double>(-1, 1)(generator);
        const int exponent = std::uniform_int_distribution<int>(-spread, spread)(generator);
        return static_cast<Scalar<Element>>(std::ldexp(mantissa, exponent));
    };
    Signal<Element> signal(length);
    for (Element& x : signal) {
        x.re = draw();
        x.im = draw();
    }
    return signal;
}

template <typename Element> Signal<Element> impulse(int length, int place, Element value)
{
    Signal<Element> signal(length, {0, 0});
    signal[place] = value;
    return signal;
}

template <typename Element> Signal<Element> crossed(Signal<Element> signal)
{
    for (Element& x : signal)
        std::swap(x.re, x.im);
    return signal;
}

template <typename Element> Signal<Element> allNaN(int length)
{
    constexpr auto nan = std::numeric_limits<Scalar<Element>>::quiet_NaN();
    return Signal<Element>(length, {nan, nan});
}

template <typename Element>
Signal<Element> transformed(const Kernel<Element>& kernel,
                            const std::type_identity_t<Signal<Element>>& x, RvnScaleFlag flag)
{
    Signal<Element> X = allNaN<Element>(kernel.length);
    EXPECT_EQ(kernel.run(x.data(), X.data(), flag), RvnStatusNoError) << kernel.name;
    return X;
}

template <typename Element> bool sameBits(const Signal<Element>& x, const Signal<Element>& y)
{
    return x.size() == y.size() && std::memcmp(x.data(), y.data(), x.size() * sizeof(Element)) == 0;
}

using Elements = ::testing::Types<Rvn32fc, Rvn64fc>;

} // namespace rvn::tests
