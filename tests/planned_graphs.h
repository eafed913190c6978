// Every graph that becomes a kernel of the Fourier-type families, beside its row, and the kernel of
// parts to parts that it is. What the tests know of the plan tables stands here.
#pragma once

#include "kernels.h"

#include "generator/families.h"

namespace rvn::tests
{

struct PlannedGraph {
    Kernel<double> kernel; // without functions
    generator::Graph graph;
    generator::Tally row; // what the plan promises, products by S included
};

// By length, and of a length: complex, forward real, inverse real, Hartley.
inline const std::vector<PlannedGraph>& everyGraph()
{
    static const std::vector<PlannedGraph> all = [] {
        using namespace generator;
        std::vector<PlannedGraph> graphs;
        const auto add = [&](Transform transform, const generator::Kernel& planned) {
            const int N = static_cast<int>(graphs.size()) / 4 + 2;
            graphs.push_back({{planned.transform, transform, N, {}, {}},
                              planned.parts.front().graph,
                              planned.row});
        };
        constexpr Format format = Format::Binary64;
        for (int row = 0; row < 63; ++row) {
            add(Transform::Forward, complexKernel(complexPlans()[row], format));
            add(Transform::ToPack, forwardRealKernel(forwardPlans()[row], format));
            add(Transform::FromPack, inverseRealKernel(inversePlans()[row], format));
            add(Transform::Hartley, hartleyKernel(hartleyPlans()[row], format));
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
