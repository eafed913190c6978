// rvnkernelgen: writes the kernels, or reports on them.
//
//   rvnkernelgen --out DIR --tuning FILE    writes every kernel below DIR, a folder a family
//   rvnkernelgen --report                   prints the plans with the counts of their graphs
//
// It stops with a message and status 1 when a graph does not have the counts of its plan.

#include "dct4/kernels.h"
#include "dct4/plans.h"
#include "dft_complex/kernels.h"
#include "dft_real/kernels.h"
#include "hartley/kernels.h"
#include "wht/kernels.h"
#include "wht/passes.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace
{

void writeKernels(const std::filesystem::path& folder, const rvn::kernelgen::Tuning& tuning)
{
    using namespace rvn;
    for (const auto format : {kernelgen::Format::Binary32, kernelgen::Format::Binary64}) {
        for (const dft_complex::ComplexPlan& plan : dft_complex::complexPlans())
            kernelgen::writeFile(folder / "dft_complex",
                                 dft_complex::kernelFile(plan, format, tuning));
        for (const dft_real::ForwardPlan& plan : dft_real::forwardPlans())
            kernelgen::writeFile(folder / "dft_real", dft_real::forwardFile(plan, format, tuning));
        for (const dft_real::InversePlan& plan : dft_real::inversePlans())
            kernelgen::writeFile(folder / "dft_real", dft_real::inverseFile(plan, format, tuning));
        for (const hartley::HartleyPlan& plan : hartley::hartleyPlans())
            kernelgen::writeFile(folder / "hartley", hartley::kernelFile(plan, format, tuning));
        for (int order = wht::lowestOrder; order <= wht::highestOrder; ++order)
            kernelgen::writeFile(folder / "wht", wht::kernelFile(order, format, tuning));
        for (const dct4::BodyPlan& plan : dct4::bodyPlans)
            kernelgen::writeFile(folder / "dct4", dct4::bodyFile(plan, format, tuning));
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (arguments.size() == 4 && arguments[0] == "--out" && arguments[2] == "--tuning") {
            writeKernels(arguments[1], rvn::kernelgen::Tuning(arguments[3]));
            return 0;
        }
        if (arguments.size() == 1 && arguments[0] == "--report") {
            std::cout << rvn::dft_complex::report() << "\n"
                      << rvn::dft_real::report() << "\n"
                      << rvn::hartley::report() << "\n"
                      << rvn::wht::report() << "\n"
                      << rvn::dct4::report();
            return std::cout.flush() ? 0 : 1;
        }
    } catch (const std::exception& error) {
        std::cerr << "rvnkernelgen: " << error.what() << "\n";
        return 1;
    }
    std::cerr << "usage: rvnkernelgen --out DIR --tuning FILE | --report\n";
    return 2;
}
