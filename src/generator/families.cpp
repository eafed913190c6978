#include "generator/families.h"

#include "wht/passes.h"

namespace rvn::generator
{

std::vector<Kernel> everyKernel()
{
    std::vector<Kernel> kernels;
    for (const Format format : {Format::Binary32, Format::Binary64}) {
        for (const ComplexPlan& plan : complexPlans())
            kernels.push_back(complexKernel(plan, format));
        for (const ForwardPlan& plan : forwardPlans())
            kernels.push_back(forwardRealKernel(plan, format));
        for (const InversePlan& plan : inversePlans())
            kernels.push_back(inverseRealKernel(plan, format));
        for (const HartleyPlan& plan : hartleyPlans())
            kernels.push_back(hartleyKernel(plan, format));
        for (int order = wht::lowestOrder; order <= wht::highestOrder; ++order)
            kernels.push_back(walshHadamardKernel(order, format));
        for (const BodyPlan& plan : bodyPlans)
            kernels.push_back(engineKernel(plan, format));
    }
    return kernels;
}

} // namespace rvn::generator
