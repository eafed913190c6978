// The kernels of the real DFT and of the Hartley transform as rows of one table, and what the tests
// do with a row.
//
// Signals and half spectra are lists of N parts here, a half spectrum as R(0), R(1), I(1), R(2),
// ... A layout tells in which slot of a kernel's array a part stands. Slots without a part hold NaN
// when a kernel reads them, and all slots hold NaN before it writes.
#pragma once

#include "kernels.h"

namespace rvn::tests
{

enum class Layout { CCS, InOrder, Perm }; // InOrder: Pack, and signals

enum class Form { ToCCS, ToPack, ToPerm, FromCCS, FromPack, FromPerm, Hartley };

inline constexpr Form forwardForms[] = {Form::ToCCS, Form::ToPack, Form::ToPerm};
inline constexpr Form inverseForms[] = {Form::FromCCS, Form::FromPack, Form::FromPerm};

inline int slotCount(Layout layout, int length)
{
    return layout == Layout::CCS ? length + 2 - length % 2 : length;
}

inline int slotOf(Layout layout, int length, int part)
{
    const bool isInOrder = layout == Layout::InOrder || (layout == Layout::Perm && length % 2 == 1);
    if (part == 0 || isInOrder)
        return part;
    return layout == Layout::Perm && part == length - 1 ? 1 : part + 1;
}

template <typename Real> struct RealKernel {
    std::string name;
    Form form;
    int length;
    RvnStatus (*run)(const Real*, Real*, RvnScaleFlag);
    RvnStatus (*dispatch)(const Real*, Real*, int32_t, RvnScaleFlag);

    bool isForward() const { return form <= Form::ToPerm; }
    bool isInverse() const { return form >= Form::FromCCS && form <= Form::FromPerm; }

    Layout source() const { return isForward() ? Layout::InOrder : layout(); }
    Layout destination() const { return isInverse() ? Layout::InOrder : layout(); }

    // The factor S under a flag, both roundings of 1/sqrt(N) included.
    Real scale(RvnScaleFlag flag) const
    {
        const double N = length;
        const bool isScaled =
            (flag == RvnScaleFwdByN && !isInverse()) || (flag == RvnScaleInvByN && !isForward());
        return static_cast<Real>(flag == RvnScaleBySqrtN ? 1.0 / std::sqrt(N)
                                 : isScaled              ? 1.0 / N
                                                         : 1.0);
    }

private:
    Layout layout() const
    {
        constexpr Layout layouts[] = {Layout::CCS, Layout::InOrder, Layout::Perm};
        return form == Form::Hartley ? Layout::InOrder : layouts[static_cast<int>(form) % 3];
    }
};

#define RVN_TEST_REAL_KERNEL(N, transform, suffix, form)                                           \
    {#transform "_" #N "_" #suffix, form, N, transform##_##N##_##suffix, transform##_##suffix},

#define RVN_TEST_REAL_KERNELS(suffix)                                                              \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTFwd_RToCCS, suffix, Form::ToCCS)             \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTFwd_RToPack, suffix, Form::ToPack)           \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTFwd_RToPerm, suffix, Form::ToPerm)           \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTInv_CCSToR, suffix, Form::FromCCS)           \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTInv_PackToR, suffix, Form::FromPack)         \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngDFTInv_PermToR, suffix, Form::FromPerm)         \
    RVNG_LENGTHS_2_TO_64(RVN_TEST_REAL_KERNEL, rvngHartley, suffix, Form::Hartley)

// By form, then by length.
template <typename Real> const std::vector<RealKernel<Real>>& everyRealKernel();

template <> inline const std::vector<RealKernel<float>>& everyRealKernel()
{
    static const std::vector<RealKernel<float>> kernels = {RVN_TEST_REAL_KERNELS(32f)};
    return kernels;
}

template <> inline const std::vector<RealKernel<double>>& everyRealKernel()
{
    static const std::vector<RealKernel<double>> kernels = {RVN_TEST_REAL_KERNELS(64f)};
    return kernels;
}

template <typename Real> const RealKernel<Real>& realKernel(Form form, int length)
{
    return everyRealKernel<Real>().at(static_cast<int>(form) * 63 + length - 2);
}

// As randomSignal draws the real parts.
template <typename Real> std::vector<Real> randomParts(int length, unsigned seed, int spread = 0)
{
    using Complex = std::conditional_t<std::is_same_v<Real, float>, Rvn32fc, Rvn64fc>;
    std::vector<Real> parts;
    for (const Complex& x : randomSignal<Complex>(length, seed, spread))
        parts.push_back(x.re);
    return parts;
}

// One part and nothing else.
template <typename Real> std::vector<Real> unitPart(int length, int part)
{
    std::vector<Real> parts(length);
    parts[part] = 1;
    return parts;
}

template <typename Real>
std::vector<Real> arranged(const std::vector<Real>& parts, Layout layout,
                           Real rest = std::numeric_limits<Real>::quiet_NaN())
{
    const int N = static_cast<int>(parts.size());
    std::vector<Real> slots(slotCount(layout, N), rest);
    for (int part = 0; part < N; ++part)
        slots[slotOf(layout, N, part)] = parts[part];
    return slots;
}

// The whole array that a kernel makes of the array at src.
template <typename Real>
std::vector<Real> resultOf(const RealKernel<Real>& kernel, const Real* src, RvnScaleFlag flag)
{
    std::vector<Real> slots(slotCount(kernel.destination(), kernel.length),
                            std::numeric_limits<Real>::quiet_NaN());
    EXPECT_EQ(kernel.run(src, slots.data(), flag), RvnStatusNoError) << kernel.name;
    return slots;
}

// From parts to parts.
template <typename Real>
std::vector<Real> transformed(const RealKernel<Real>& kernel, const std::vector<Real>& parts,
                              RvnScaleFlag flag)
{
    const auto slots = resultOf(kernel, arranged(parts, kernel.source()).data(), flag);
    std::vector<Real> result;
    for (int part = 0; part < kernel.length; ++part)
        result.push_back(slots[slotOf(kernel.destination(), kernel.length, part)]);
    return result;
}

using Reals = ::testing::Types<float, double>;

} // namespace rvn::tests
