// Both are called through an address that the dynamic linker resolved. The length does not change
// from one call to the next, so that the jump of the dispatcher is predicted.

#include "studies.h"

#include "buffers.h"
#include "clock.h"
#include "input.h"
#include "kernels.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace
{

constexpr std::array lengths = {2, 8, 64};

template <typename Element>
using Dispatcher = RvnStatus (*)(const Element* src, Element* dst, std::int32_t len,
                                 RvnScaleFlag flag);

template <typename Real, typename Element, typename KernelsOfAll>
void report(const std::string& name, const KernelsOfAll& kernels, Dispatcher<Element> dispatcher,
            const Options& options)
{
    const auto buffers = std::make_unique<Buffers<Real>>();
    fillForTiming<Real>(buffers->source, Placement::OutOfPlace);
    const auto* const src = reinterpret_cast<const Element*>(buffers->source.data());
    auto* const dst = reinterpret_cast<Element*>(buffers->target.data());
    for (const int length : lengths) {
        const Kernel<Element> kernel = kernels.template of<Real>(length);
        const auto [timings, cycles] = measureInCycles(
            {contender("direct", [=] { kernel(src, dst, RvnScaleNone); }),
             contender("dispatched", [=] { dispatcher(src, dst, length, RvnScaleNone); })},
            options.repetitions, options.seconds);
        const double more = timings[1].ratio - 1;
        std::printf("%-20s%4d |%12.2f%12.2f |%12.2f%12.2f\n", name.c_str(), length,
                    timings[0].nanoseconds, timings[1].nanoseconds, timings[0].nanoseconds * more,
                    cycles * more);
        std::fflush(stdout);
    }
}

} // namespace

void reportDispatch(const Options& options)
{
    std::printf("\nthrough the dispatcher\n\n");
    std::printf("%24s |%24s |%24s\n", "", "nanoseconds a call", "more by dispatch");
    std::printf("%-20s%4s |%12s%12s |%12s%12s\n", "transform", "N", "direct", "dispatched",
                "nanoseconds", "cycles");
    if (std::ranges::count(options.precisions, Precision::Double) > 0) {
        report<double, Rvn64fc>("DFTFwd_CToC_64fc", fwdCToC, rvngDFTFwd_CToC_64fc, options);
        report<double, double>("DFTFwd_RToCCS_64f", fwdRToCcs, rvngDFTFwd_RToCCS_64f, options);
    }
    if (std::ranges::count(options.precisions, Precision::Single) > 0)
        report<float, Rvn32fc>("DFTFwd_CToC_32fc", fwdCToC, rvngDFTFwd_CToC_32fc, options);
}
