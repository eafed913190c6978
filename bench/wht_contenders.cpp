// Who is called, and how: the calls below are what is timed. All multiply by 1/sqrt(N).
//
// Ours         the kernel through its address, RvnScaleBySqrtN, with a buffer of the caller.
// Ours alloc   the same with a null buffer: orders 8 to 13 allocate and release their work memory
//              at every call. Orders 1 to 7 need none; what they show is the noise.
// Loop         a plain loop for all orders, compiled as the kernels are, without vectors.
// AVX2 loop    the same source, vectorised by the compiler. It does several additions in one
//              instruction, which the kernels do not: it tells what that would be worth.

#include "wht_contenders.h"

#include "wht_kernels.h"
#include "wht_loop.h"

#include <cmath>
#include <stdexcept>

namespace
{

template <typename Element>
using Loop = void (*)(const Element* src, Element* dst, int order, Element scale);

} // namespace

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

template std::vector<Contender> whtContenders(WhtBuffers<float>&, int, Placement);
template std::vector<Contender> whtContenders(WhtBuffers<double>&, int, Placement);
