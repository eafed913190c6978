// FFTW: its functions of either precision under common names, and its plans behind a shared pointer
// that releases them.
#pragma once

#include <fftw3.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <type_traits>

// FFTW names its functions by precision; this is the one place that knows both sets.
template <typename Real> struct Fftw;

template <> struct Fftw<double> {
    using Complex = fftw_complex;
    using Plan = fftw_plan;
    static constexpr auto complexToComplex = fftw_plan_dft_1d;
    static constexpr auto realToComplex = fftw_plan_dft_r2c_1d;
    static constexpr auto complexToReal = fftw_plan_dft_c2r_1d;
    static constexpr auto realToReal = fftw_plan_r2r_1d;
    static constexpr auto manyComplexToComplex = fftw_plan_many_dft;
    static constexpr auto manyRealToComplex = fftw_plan_many_dft_r2c;
    static constexpr auto forgetWisdom = fftw_forget_wisdom;
    static constexpr auto destroy = fftw_destroy_plan;
    static void execute(Plan plan) { fftw_execute(plan); }
};

template <> struct Fftw<float> {
    using Complex = fftwf_complex;
    using Plan = fftwf_plan;
    static constexpr auto complexToComplex = fftwf_plan_dft_1d;
    static constexpr auto realToComplex = fftwf_plan_dft_r2c_1d;
    static constexpr auto complexToReal = fftwf_plan_dft_c2r_1d;
    static constexpr auto realToReal = fftwf_plan_r2r_1d;
    static constexpr auto manyComplexToComplex = fftwf_plan_many_dft;
    static constexpr auto manyRealToComplex = fftwf_plan_many_dft_r2c;
    static constexpr auto forgetWisdom = fftwf_forget_wisdom;
    static constexpr auto destroy = fftwf_destroy_plan;
    static void execute(Plan plan) { fftwf_execute(plan); }
};

template <typename Real>
using FftwPlan = std::shared_ptr<std::remove_pointer_t<typename Fftw<Real>::Plan>>;

// Planned without the codelets that use vector instructions, and with all that FFTW has for this
// processor.
struct FftwVariant {
    const char* name;
    unsigned flags; // beside that of the effort, such as FFTW_PATIENT
};

inline constexpr std::array<FftwVariant, 2> fftwVariants = {{
    {"FFTW scalar", FFTW_NO_SIMD},
    {"FFTW SIMD", 0},
}};

// What the planner, one of Fftw<Real>, makes of the arguments: a plan for exactly these arrays,
// whose alignment it therefore knows. It starts without wisdom, so that no plan is taken over from
// one made with other flags.
template <typename Real, typename Planner, typename... Arguments>
FftwPlan<Real> planFftw(Planner planner, Arguments... arguments)
{
    using Api = Fftw<Real>;
    Api::forgetWisdom();
    FftwPlan<Real> plan(planner(arguments...), Api::destroy);
    if (!plan)
        throw std::runtime_error("FFTW made no plan");
    return plan;
}
