// The peers of the complex DFT: an FFTW plan of either precision and a KissFFT state, each behind a
// shared pointer that releases it. Their complex types and ours are the same pair of numbers, real
// part first.
#pragma once

#include "options.h"
#include "rvngenmx.h"

#include <fftw3.h>
#include <kiss_fft.h>

#include <memory>
#include <stdexcept>
#include <type_traits>

namespace rvn::bench
{

// FFTW names its functions by precision; this is the one place that knows both sets.
template <typename Element> struct Fftw;

template <> struct Fftw<Rvn64fc> {
    using Complex = fftw_complex;
    using Plan = fftw_plan;
    static constexpr auto planner = fftw_plan_dft_1d;
    static constexpr auto forgetWisdom = fftw_forget_wisdom;
    static constexpr auto destroy = fftw_destroy_plan;
    static void execute(Plan plan) { fftw_execute(plan); }
};

template <> struct Fftw<Rvn32fc> {
    using Complex = fftwf_complex;
    using Plan = fftwf_plan;
    static constexpr auto planner = fftwf_plan_dft_1d;
    static constexpr auto forgetWisdom = fftwf_forget_wisdom;
    static constexpr auto destroy = fftwf_destroy_plan;
    static void execute(Plan plan) { fftwf_execute(plan); }
};

template <typename Element>
using FftwPlan = std::shared_ptr<std::remove_pointer_t<typename Fftw<Element>::Plan>>;

// A plan for exactly these arrays, whose alignment the planner therefore knows. It starts without
// wisdom, so that no plan is taken over from one made with other flags.
template <typename Element>
FftwPlan<Element> planFftw(int length, Element* source, Element* destination, Direction direction,
                           unsigned flags)
{
    using Api = Fftw<Element>;
    using Complex = typename Api::Complex;
    const int sign = direction == Direction::Forward ? FFTW_FORWARD : FFTW_BACKWARD;
    Api::forgetWisdom();
    FftwPlan<Element> plan(Api::planner(length, reinterpret_cast<Complex*>(source),
                                        reinterpret_cast<Complex*>(destination), sign, flags),
                           Api::destroy);
    if (!plan)
        throw std::runtime_error("FFTW made no plan");
    return plan;
}

using KissState = std::shared_ptr<std::remove_pointer_t<kiss_fft_cfg>>;

inline KissState planKiss(int length, Direction direction)
{
    const int inverse = direction == Direction::Inverse;
    KissState state(kiss_fft_alloc(length, inverse, nullptr, nullptr), kiss_fft_free);
    if (!state)
        throw std::runtime_error("KissFFT made no state");
    return state;
}

} // namespace rvn::bench
