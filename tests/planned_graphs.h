// Every graph that becomes a kernel of the Fourier-type families, beside its row, and the kernel of
// parts to parts that it is. What the tests know of the plan tables stands here.
#pragma once

#include "kernels.h"

#include "dft_complex/kernels.h"
#include "dft_real/kernels.h"
#include "hartley/kernels.h"

namespace rvn::tests
{

// What a row promises of a kernel, products by S included.
struct PlannedGraph {
    Kernel<double> kernel; // without functions
    kernelgen::Graph graph;
    int additions;
    int multiplications;
    int doublings;
};

// By length, and of a length: complex, forward real, inverse real, Hartley.
inline const std::vector<PlannedGraph>& everyGraph()
{
    static const std::vector<PlannedGraph> all = [] {
        std::vector<PlannedGraph> graphs;
        const auto add = [&](std::string family, Transform transform, const kernelgen::Graph& graph,
                             const auto& row, int products, int doublings) {
            const int N = static_cast<int>(graphs.size()) / 4 + 2;
            graphs.push_back({{std::move(family) + " " + std::to_string(N), transform, N, {}, {}},
                              graph,
                              row.additions,
                              row.multiplications + products,
                              doublings});
        };
        for (int N = 2; N <= 64; ++N) {
            const auto& complex = dft_complex::complexPlans()[N - 2];
            const auto& forward = dft_real::forwardPlans()[N - 2];
            const auto& inverse = dft_real::inversePlans()[N - 2];
            const auto& hartley = hartley::hartleyPlans()[N - 2];
            add("complex DFT", Transform::Forward, dft_complex::complexGraph(complex), complex,
                2 * N, 0);
            add("real DFT", Transform::ToPack, dft_real::forwardGraph(forward), forward, 0, 0);
            add("inverse real DFT", Transform::FromPack, dft_real::inverseGraph(inverse), inverse,
                0, inverse.doublings);
            add("Hartley transform", Transform::Hartley, hartley::hartleyGraph(hartley), hartley, 0,
                0);
        }
        return graphs;
    }();
    return all;
}

// Both ways of the complex DFT have one graph, and so have all layouts of a real one.
template <typename Real> const PlannedGraph& graphOf(const Kernel<Real>& kernel)
{
    const int family = kernel.isComplex() ? 0 : kernel.isForward() ? 1 : kernel.isInverse() ? 2 : 3;
    return everyGraph().at(4 * (kernel.length() - 2) + family);
}

} // namespace rvn::tests
