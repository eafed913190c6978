// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel through its address, RvnScaleNone. It multiplies every output by S = 1,
//           which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, FFTW_PATIENT: the call that its manual
//           names as the fastest. "FFTW scalar" is planned without the codelets that use vector
//           instructions, "FFTW SIMD" with all that it has for this processor.
// KissFFT   kiss_fft on a prepared state, binary32 only. In place it transforms into a block that
//           it allocates at every call, and copies it back.

#include "contenders.h"

#include "kernels.h"
#include "peers.h"

namespace rvn::bench
{

namespace
{

constexpr unsigned fftwSimd = FFTW_PATIENT;
constexpr unsigned fftwScalar = FFTW_PATIENT | FFTW_NO_SIMD;

// The callee lies in a shared library and the compiler cannot see into it; the clobber makes it
// take all memory to be read and written between two calls. What the call itself needs is copied
// into the loop's function, so that it stays in registers.
template <typename Call> Contender contender(const std::string& name, Call call)
{
    const auto repeat = [call](benchmark::State& state) {
        const Call callHere = call;
        for ([[maybe_unused]] auto iteration : state) {
            callHere();
            benchmark::ClobberMemory();
        }
    };
    return {.name = name, .transform = call, .repeat = repeat};
}

} // namespace

template <typename Element> std::vector<std::string> contenderNames()
{
    std::vector<std::string> names = {"ours", "FFTW scalar", "FFTW SIMD"};
    if constexpr (std::is_same_v<Element, Rvn32fc>)
        names.push_back("KissFFT");
    return names;
}

template <typename Element>
std::vector<Contender> contenders(Buffers<Element>& buffers, int length, Direction direction,
                                  Placement placement)
{
    Element* const source = buffers.source.data();
    Element* const destination = buffers.destination(placement);
    const std::vector<std::string> names = contenderNames<Element>();

    const Kernel<Element> kernel = kernelOf<Element>(length, direction);
    std::vector<Contender> all = {
        contender(names[0], [=] { kernel(source, destination, RvnScaleNone); })};

    for (const unsigned flags : {fftwScalar, fftwSimd}) {
        const FftwPlan<Element> plan = planFftw(length, source, destination, direction, flags);
        all.push_back(contender(names[all.size()], [=] { Fftw<Element>::execute(plan.get()); }));
    }

    if constexpr (std::is_same_v<Element, Rvn32fc>) {
        const KissState state = planKiss(length, direction);
        const kiss_fft_cpx* const in = reinterpret_cast<const kiss_fft_cpx*>(source);
        kiss_fft_cpx* const out = reinterpret_cast<kiss_fft_cpx*>(destination);
        all.push_back(contender(names[all.size()], [=] { kiss_fft(state.get(), in, out); }));
    }
    return all;
}

template std::vector<std::string> contenderNames<Rvn32fc>();
template std::vector<std::string> contenderNames<Rvn64fc>();
template std::vector<Contender> contenders(Buffers<Rvn32fc>&, int, Direction, Placement);
template std::vector<Contender> contenders(Buffers<Rvn64fc>&, int, Direction, Placement);

} // namespace rvn::bench
