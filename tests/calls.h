// Every transform of the library as a call: a name, and a function from an array to its transform.
// A kernel is called by its name and through its dispatcher, a DCT-IV with a plan made, used and
// released in the call, or with a plan that several calls share.
#pragma once

#include "dct4_kernels.h"

#include <functional>
#include <memory>

namespace rvn::tests
{

template <typename Real> struct Call {
    std::string name;
    int count; // of the elements of the source
    std::function<std::vector<Real>(const std::vector<Real>&)> run;

    // All slots are numbers, also those that a kernel skips.
    std::vector<Real> input(unsigned seed) const { return randomParts<Real>(count, seed, 8); }
};

template <typename Real> std::vector<Call<Real>> everyCall()
{
    std::vector<Call<Real>> calls;
    for (const auto& kernel : everyKernel<Real>()) {
        const int count = slotCount(kernel.source(), kernel.parts());
        calls.push_back({kernel.name, count, [&kernel](const std::vector<Real>& x) {
                             return resultOf(kernel, x.data(), RvnScaleBySqrtN);
                         }});
        calls.push_back(
            {kernel.name + " by its dispatcher", count, [&kernel](const std::vector<Real>& x) {
                 std::vector<Real> y(slotCount(kernel.destination(), kernel.parts()), nan<Real>);
                 std::vector<Real> buffer(kernel.workElements());
                 EXPECT_EQ(kernel.dispatcher(x.data(), y.data(), kernel.size, RvnScaleBySqrtN,
                                             buffer.data()),
                           RvnStatusNoError)
                     << kernel.name;
                 return y;
             }});
    }
    for (int size = 2; size <= 1 << 16; size *= 2) {
        const std::string name = "DCT-IV of " + std::to_string(size);
        calls.push_back({name, size, [size](const std::vector<Real>& x) {
                             typename Dct4<Real>::Spec* spec = nullptr;
                             EXPECT_EQ(Dct4<Real>::initAlloc(&spec, size), RvnStatusNoError);
                             std::vector<Real> X(size, nan<Real>);
                             EXPECT_EQ(Dct4<Real>::run(x.data(), X.data(), spec), RvnStatusNoError);
                             EXPECT_EQ(Dct4<Real>::free(spec), RvnStatusNoError);
                             return X;
                         }});
        if (size <= 32) {
            const auto plan = std::make_shared<Dct4Plan<Real>>(size);
            calls.push_back({name + " by a shared plan", size,
                             [plan](const std::vector<Real>& x) { return plan->transformed(x); }});
        }
    }
    return calls;
}

} // namespace rvn::tests
