#include "generator/families.h"

#include "wht/passes.h"

#include <stdexcept>

namespace rvn::generator
{

std::vector<Kernel> everyKernel()
{
    std::vector<Kernel> kernels;
    // What a builder cannot do is said of the row that asks for it.
    const auto add = [&](const char* family, int size, const auto& kernelOf) {
        try {
            kernels.push_back(kernelOf());
        } catch (const std::exception& error) {
            throw std::runtime_error(std::string(family) + ", " + std::to_string(size) + ": " +
                                     error.what());
        }
    };
    for (const Format format : {Format::Binary32, Format::Binary64}) {
        for (const ComplexPlan& plan : complexPlans())
            add("complex DFT", plan.stage.length, [&] { return complexKernel(plan, format); });
        for (const ForwardPlan& plan : forwardPlans())
            add("forward real DFT", plan.stage.length,
                [&] { return forwardRealKernel(plan, format); });
        for (const InversePlan& plan : inversePlans())
            add("inverse real DFT", plan.stage.length,
                [&] { return inverseRealKernel(plan, format); });
        for (const HartleyPlan& plan : hartleyPlans())
            add("Hartley transform", plan.length, [&] { return hartleyKernel(plan, format); });
        for (int order = wht::lowestOrder; order <= wht::highestOrder; ++order)
            add("Walsh-Hadamard transform", order,
                [&] { return walshHadamardKernel(order, format); });
        for (const BodyPlan& plan : bodyPlans)
            add("DCT-IV body", plan.size, [&] { return engineKernel(plan, format); });
    }
    return kernels;
}

} // namespace rvn::generator
