// Who is called, and how: the calls below are what is timed.
//
// Ours      the kernel through its address, RvnScaleNone. It multiplies every output by S = 1,
//           which the peers do not do.
// FFTW      fftw_execute on a plan for these very arrays, FFTW_PATIENT: the call that its manual
//           names as the fastest. "FFTW scalar" is planned without the codelets that use vector
//           instructions, "FFTW SIMD" with all that it has for this processor.
// KissFFT   kiss_fft on a prepared state, binary32 only. In place it transforms into a block that
//           it allocates at every call, and copies it back.

#include "complex_contenders.h"

#include "complex_kernels.h"
#include "complex_peers.h"

namespace rvn::bench
{

namespace
{

constexpr unsigned fftwSimd = FFTW_PATIENT;
constexpr unsigned fftwScalar = FFTW_PATIENT | FFTW_NO_SIMD;

} // namespace

template <typename Element> Names complexContenderNames()
{
    Names names = {"ours", "FFTW scalar", "FFTW SIMD"};
    if constexpr (std::is_same_v<Element, Rvn32fc>)
        names.push_back("KissFFT");
    return names;
}

template <typename Element>
std::vector<Contender> complexContenders(ComplexBuffers<Element>& buffers, int length,
                                         Direction direction, Placement placement)
{
    Element* const source = buffers.source.data();
    Element* const destination = buffers.destination(placement);
    const Names names = complexContenderNames<Element>();

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

template Names complexContenderNames<Rvn32fc>();
template Names complexContenderNames<Rvn64fc>();
template std::vector<Contender> complexContenders(ComplexBuffers<Rvn32fc>&, int, Direction,
                                                  Placement);
template std::vector<Contender> complexContenders(ComplexBuffers<Rvn64fc>&, int, Direction,
                                                  Placement);

} // namespace rvn::bench
