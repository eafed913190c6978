// The series of the Walsh-Hadamard transform.
//
// Who is called, and how: the calls below are what is timed. All multiply by 1/sqrt(N).
//
// Ours         the kernel through its address, RvnScaleBySqrtN, with a buffer of the caller.
// Ours alloc   the same with a null buffer: orders 8 to 13 allocate and release their work memory
//              at every call. Orders 1 to 7 need none; what they show is the noise.
// Loop         a plain loop for all orders, compiled as the kernels are, without vectors.
// AVX2 loop    the same source, vectorised by the compiler. It does several additions in one
//              instruction, which the kernels do not: it tells what that would be worth.
//
// rvngenmx.h fixes the order of the additions and with it every rounding: right results are equal
// results. The loops share no code with the kernels.
//
// A row is an order k: what the contenders take, what this is for an element and over k 2^k, and
// how far it is from the limit of scalar code.

#include "clock.h"
#include "extras.h"
#include "families.h"
#include "input.h"
#include "kernel_work.h"
#include "means.h"
#include "wht_kernels.h"
#include "wht_loop.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

using namespace rvn::bench; // kernel_work.h

namespace
{

// The arrays begin a third of a page apart, so that those of low orders never have elements a
// multiple of 4096 bytes apart, where a load can be taken to depend on a store that it has nothing
// to do with. Higher orders have them whatever one does.
template <typename Element> struct alignas(4096) WhtBuffers {
    static constexpr std::size_t longest = std::size_t(1) << highestOrder;
    using Gap = std::array<std::byte, 1344>;

    std::array<Element, longest> source;
    Gap gapBeforeTarget;
    std::array<Element, longest> target;
    Gap gapBeforeWork;
    std::array<Element, 2 * longest> work;

    Element* destination(Placement placement)
    {
        return placement == Placement::InPlace ? source.data() : target.data();
    }
};

constexpr std::size_t firstPeer = 2;

template <typename Element>
using Loop = void (*)(const Element* src, Element* dst, int order, Element scale);

Names whtContenderNames()
{
    return {"ours", "ours alloc", "loop", "AVX2 loop"};
}

template <typename Element>
std::vector<Contender> whtContenders(WhtBuffers<Element>& buffers, int order, Placement placement)
{
    if (whtBufferBytes<Element>(order) > sizeof(buffers.work))
        throw std::runtime_error("the work memory of the benchmark is too small");
    Element* const source = buffers.source.data();
    Element* const destination = buffers.destination(placement);
    Element* const work = buffers.work.data();
    const auto scale = static_cast<Element>(1 / std::sqrt(static_cast<double>(1 << order)));
    const WhtKernel<Element> kernel = whtKernelOf<Element>(order);
    const Loop<Element> scalarLoop = scalar_loop::wht;
    const Loop<Element> avx2Loop = avx2_loop::wht;
    const Names names = whtContenderNames();

    std::vector<Contender> all = {
        contender(names[0], [=] { kernel(source, destination, RvnScaleBySqrtN, work); }),
        contender(names[1], [=] { kernel(source, destination, RvnScaleBySqrtN, nullptr); }),
        contender(names[2], [=] { scalarLoop(source, destination, order, scale); })};
    if (__builtin_cpu_supports("avx2"))
        all.push_back(contender(names[3], [=] { avx2Loop(source, destination, order, scale); }));
    return all;
}

// Every contender on a number of random inputs: the results equal those of the first one bit for
// bit.
template <typename Element>
void requireAgreement(std::span<const Contender> contenders, WhtBuffers<Element>& buffers,
                      int order, Placement placement)
{
    Random random(seed);
    std::vector<Element> input(std::size_t(1) << order), first;
    for (int trial = 0; trial < 8; ++trial) {
        fillAtRandom<Element>(input, random);
        for (const Contender& contender : contenders) {
            buffers.target.fill(std::numeric_limits<Element>::quiet_NaN());
            std::ranges::copy(input, buffers.source.begin());
            contender.transform();
            const Element* const found = buffers.destination(placement);
            if (&contender == &contenders[0])
                first.assign(found, found + input.size());
            if (std::memcmp(found, first.data(), first.size() * sizeof(Element)) != 0)
                throw std::runtime_error(contender.name + " and " + contenders[0].name +
                                         " differ at order " + std::to_string(order));
        }
    }
}

Layout layout()
{
    const Names names = judged(whtContenderNames(), firstPeer);
    std::vector<Extra> extras = {
        {"ns/element", "nanoseconds an element", "element", {names.front()}, 1, "%.3f"},
        growthExtra(names)};
    std::ranges::copy(limitExtras(names), std::back_inserter(extras));
    return {.size = "order",
            .sizes = {{.name = "order", .width = 6}, {.name = "points", .width = 7}},
            .contenders = whtContenderNames(),
            .firstPeer = firstPeer,
            .ranges = {},
            .extras = extras};
}

template <typename Element>
Row measureOrder(WhtBuffers<Element>& buffers, int order, const Options& options)
{
    const std::vector<Contender> contenders = whtContenders(buffers, order, options.placement);
    requireAgreement<Element>(contenders, buffers, order, options.placement);

    fillForTiming<Element>(buffers.source, options.placement);
    const TimingsAndCycles found =
        measureInCycles(contenders, options.repetitions, options.seconds);
    const int points = 1 << order;
    std::vector<std::vector<double>> extras = {{found.timings.front().nanoseconds / points},
                                               growth(found.timings, firstPeer, points)};
    std::ranges::copy(overLimit(found, firstPeer, whtWork(order)), std::back_inserter(extras));
    return {.sizes = {order, points}, .timings = found.timings, .extras = extras};
}

template <typename Element> Series series(const Options& options)
{
    const auto buffers = std::make_shared<WhtBuffers<Element>>();
    return {.name = std::is_same_v<Element, float> ? "WHT_32f" : "WHT_64f",
            .layout = layout(),
            .sizes = options.orders,
            .measure = [=](int order) { return measureOrder(*buffers, order, options); }};
}

} // namespace

std::vector<std::string> whtMethod(const Options&)
{
    return {"WHT       all: RvnScaleBySqrtN; ours: a buffer of the caller, alloc: none, so that "
            "orders from 8",
            "          allocate; loop: two levels of butterflies a pass, AVX2 loop: the same "
            "vectorised;",
            "          growth: nanoseconds over k 2^k"};
}

Series whtSeries(const Options& options, Precision precision)
{
    return precision == Precision::Double ? series<double>(options) : series<float>(options);
}
