// rvngenmx_accuracy: how exact every transform is, as the tables of docs/accuracy.md.
//
// Errors are of random inputs, uniform in [-1, 1), against the sum of the definition in binary80
// (Walsh-Hadamard, and the DCT-IV above 4096 points: a fast transform in it):
//   rms      the square root of (sum of |error|^2) / (sum of |output|^2), over all trials
//   worst    the largest |error| of any output, over the root mean square of the trial's outputs
// Both are given in units of the format's rounding, 2^-53 or 2^-24.

#include "dct4_reference.h"
#include "direct_sum.h"
#include "half_spectrum.h"
#include "input.h"
#include "kernels.h"
#include "progress.h"
#include "rvngenmx.hpp"
#include "wht_kernels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <exception>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>

namespace
{

struct Errors {
    double rms;
    double worst;
};

// What a transform gives for an input, and what is right.
template <typename Real> using Call = std::function<std::vector<Real>(const std::vector<Real>&)>;
using Exact = std::function<Numbers(const Numbers&)>;

template <typename Real>
Errors errorsOf(const Call<Real>& call, const Exact& exact, int inputs, int trials)
{
    constexpr long double unit = std::numeric_limits<Real>::epsilon() / 2;
    Random random(seed);
    long double error = 0;
    long double total = 0;
    long double worst = 0;
    for (int trial = 0; trial < trials; ++trial) {
        const std::vector<Real> input = drawn<Real>(inputs, random);
        const std::vector<Real> found = call(input);
        const Numbers right = exact(Numbers(input.begin(), input.end()));
        long double largest = 0;
        long double power = 0;
        for (std::size_t i = 0; i < right.size(); ++i) {
            const long double difference = found[i] - right[i];
            error += difference * difference;
            power += right[i] * right[i];
            largest = std::max(largest, std::fabs(difference));
        }
        total += power;
        worst =
            std::max(worst, largest / std::sqrt(power / static_cast<long double>(right.size())));
    }
    if (!(worst < 1e4L * unit))
        throw std::runtime_error("a transform is wrong");
    return {static_cast<double>(std::sqrt(error / total) / unit),
            static_cast<double>(worst / unit)};
}

constexpr int trials = 200;

// src and dst as elements, which for complex kernels are pairs of Real.
template <typename Real, typename Element> Call<Real> callOf(Kernel<Element> kernel, int outputs)
{
    return [=](const std::vector<Real>& input) {
        std::vector<Real> output(static_cast<std::size_t>(outputs));
        kernel(reinterpret_cast<const Element*>(input.data()),
               reinterpret_cast<Element*>(output.data()), RvnScaleNone);
        return output;
    };
}

template <typename Real, typename Element> Errors complexErrors(int N)
{
    return errorsOf<Real>(
        callOf<Real, Element>(fwdCToC.of<Real>(N), 2 * N),
        [](const Numbers& x) { return directComplexDft(x, Direction::Forward); }, 2 * N, trials);
}

template <typename Real> Errors forwardErrors(int N)
{
    return errorsOf<Real>(callOf<Real, Real>(fwdRToCcs.of<Real>(N), 2 * (N / 2 + 1)), directRealDft,
                          N, trials);
}

// A half spectrum in Perm, every element of which counts.
template <typename Real> Errors inverseErrors(int N)
{
    const auto halfSpectrum = [N](const Numbers& perm) {
        Numbers ccs = perm;
        if (N % 2 == 0) {
            const long double nyquist = ccs[1];
            ccs.erase(ccs.begin() + 1);
            ccs.insert(ccs.end(), {nyquist, 0});
        }
        ccs.insert(ccs.begin() + 1, 0);
        return directInverseRealDft(ccs, N);
    };
    return errorsOf<Real>(callOf<Real, Real>(invPermToR.of<Real>(N), N), halfSpectrum, N, trials);
}

template <typename Real> Errors hartleyErrors(int N)
{
    return errorsOf<Real>(callOf<Real, Real>(hartleyKernels.of<Real>(N), N), directHartley, N,
                          trials);
}

Numbers exactWht(const Numbers& signal)
{
    Numbers a = signal;
    for (std::size_t h = 1; h < a.size(); h *= 2)
        for (std::size_t i = 0; i < a.size(); ++i)
            if ((i & h) == 0) {
                const long double lower = a[i];
                const long double upper = a[i + h];
                a[i] = lower + upper;
                a[i + h] = lower - upper;
            }
    return a;
}

template <typename Real> Errors whtErrors(int order)
{
    const auto call = [order](const std::vector<Real>& input) {
        std::vector<Real> output(input.size());
        std::vector<std::byte> work(whtBufferBytes<Real>(order));
        whtKernelOf<Real>(order)(input.data(), output.data(), RvnScaleNone, work.data());
        return output;
    };
    return errorsOf<Real>(call, exactWht, 1 << order, trials);
}

template <typename Real> Errors dct4Errors(int size)
{
    rvng::Dct4<Real> plan(static_cast<std::size_t>(size));
    const auto call = [&plan](const std::vector<Real>& input) {
        std::vector<Real> output(input.size());
        if (plan.run(input, output) != rvng::Status::NoError)
            throw std::runtime_error("a plan is refused");
        return output;
    };
    return errorsOf<Real>(call, referenceDct4, size, size <= 256 ? trials : 3);
}

void printCells(Errors wide, Errors narrow)
{
    std::printf(" %.2f / %.1f | %.2f / %.1f |", wide.rms, wide.worst, narrow.rms, narrow.worst);
}

void printDfts()
{
    std::puts("| N | complex 64fc | 32fc | real forward 64f | 32f | real inverse 64f | 32f | "
              "Hartley 64f | 32f |\n|---|---|---|---|---|---|---|---|---|");
    Progress progress("rvngenmx_accuracy", longestLength - shortestLength + 1);
    for (int N = shortestLength; N <= longestLength; ++N) {
        progress.step("length " + std::to_string(N));
        std::printf("| %d |", N);
        printCells(complexErrors<double, Rvn64fc>(N), complexErrors<float, Rvn32fc>(N));
        printCells(forwardErrors<double>(N), forwardErrors<float>(N));
        printCells(inverseErrors<double>(N), inverseErrors<float>(N));
        printCells(hartleyErrors<double>(N), hartleyErrors<float>(N));
        progress.clear();
        std::puts("");
    }
}

void printPowersOfTwo()
{
    std::puts("\n| N | Walsh-Hadamard 64f | 32f | DCT-IV 64f | 32f |\n|---|---|---|---|---|");
    Progress progress("rvngenmx_accuracy", std::countr_zero(static_cast<unsigned>(largestSize)));
    for (int k = lowestOrder; 1 << k <= largestSize; ++k) {
        progress.step("size " + std::to_string(1 << k));
        std::printf("| %d |", 1 << k);
        if (k <= highestOrder)
            printCells(whtErrors<double>(k), whtErrors<float>(k));
        else
            std::printf(" | |");
        printCells(dct4Errors<double>(1 << k), dct4Errors<float>(1 << k));
        progress.clear();
        std::puts("");
    }
}

} // namespace

int main()
{
    try {
        printDfts();
        printPowersOfTwo();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "rvngenmx_accuracy: %s\n", failure.what());
        return 1;
    }
}
