// Every kernel of the library as a row of one table, whatever its family, and what the tests do
// with a row.
//
// A kernel maps parts to parts: the numbers of a real signal in order, real and imaginary parts of
// a complex one in turn, and of a half spectrum R(0), R(1), I(1), R(2), ... A layout tells in which
// slot of a kernel's array a part stands. Slots without a part hold NaN when a kernel reads them,
// and all slots hold NaN before it writes, so that an output it leaves out cannot pass.
#pragma once

#include "rvngenmx.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace rvn::tests
{

enum class Transform {
    Forward,
    Inverse,
    ToCCS,
    ToPack,
    ToPerm,
    FromCCS,
    FromPack,
    FromPerm,
    Hartley,
    WalshHadamard
};

enum class Layout { InOrder, CCS, Perm }; // InOrder: Pack, and everything but half spectra

template <typename Real> struct Kernel {
    using enum Transform;

    std::string name;
    Transform transform;
    int size; // the length, or the order: what a dispatcher is told
    RvnStatus (*kernel)(const Real*, Real*, RvnScaleFlag, void*);
    RvnStatus (*dispatcher)(const Real*, Real*, int32_t, RvnScaleFlag, void*);

    RvnStatus run(const Real* src, Real* dst, RvnScaleFlag flag, void* buffer = nullptr) const
    {
        return kernel(src, dst, flag, buffer);
    }

    bool isComplex() const { return transform <= Inverse; }
    bool isWalshHadamard() const { return transform == WalshHadamard; }
    bool isForward() const
    {
        return transform == Forward || (transform >= ToCCS && transform <= ToPerm);
    }
    bool isInverse() const
    {
        return transform == Inverse || (transform >= FromCCS && transform <= FromPerm);
    }

    int length() const { return isWalshHadamard() ? 1 << size : size; }
    int parts() const { return isComplex() ? 2 * length() : length(); }
    Layout source() const { return isInverse() ? layout() : Layout::InOrder; }
    Layout destination() const { return isInverse() ? Layout::InOrder : layout(); }

    // The factor S under a flag, both roundings of 1/sqrt(N) included.
    Real scale(RvnScaleFlag flag) const
    {
        const double N = length();
        const bool isScaled =
            (flag == RvnScaleFwdByN && !isInverse()) || (flag == RvnScaleInvByN && !isForward());
        return static_cast<Real>(flag == RvnScaleBySqrtN ? 1.0 / std::sqrt(N)
                                 : isScaled              ? 1.0 / N
                                                         : 1.0);
    }

    // Elements of work memory.
    int workElements() const
    {
        static constexpr int elements[] = {256, 512, 1024, 2048, 4096 + 256, 8192 + 1024};
        return isWalshHadamard() && size >= 8 ? elements[size - 8] : 0;
    }

private:
    Layout layout() const
    {
        return transform == ToCCS || transform == FromCCS     ? Layout::CCS
               : transform == ToPerm || transform == FromPerm ? Layout::Perm
                                                              : Layout::InOrder;
    }
};

// By transform, then by size.
template <typename Real> const std::vector<Kernel<Real>>& everyKernel();
template <> const std::vector<Kernel<float>>& everyKernel();
template <> const std::vector<Kernel<double>>& everyKernel();

template <typename Real> const Kernel<Real>& kernelOf(Transform transform, int size)
{
    const int first = transform == Transform::WalshHadamard ? 1 : 2;
    return everyKernel<Real>().at(static_cast<int>(transform) * 63 + size - first);
}

inline constexpr RvnScaleFlag everyFlag[] = {RvnScaleFwdByN, RvnScaleInvByN, RvnScaleBySqrtN,
                                             RvnScaleNone};

inline std::string inWords(RvnScaleFlag flag)
{
    return flag == RvnScaleFwdByN    ? "RvnScaleFwdByN"
           : flag == RvnScaleInvByN  ? "RvnScaleInvByN"
           : flag == RvnScaleBySqrtN ? "RvnScaleBySqrtN"
           : flag == RvnScaleNone    ? "RvnScaleNone"
                                     : "no flag, but " + std::to_string(flag);
}

template <typename Real> constexpr Real nan = std::numeric_limits<Real>::quiet_NaN();

// Uniform in (-1, 1) times a power of two up to 2^spread in either direction.
template <typename Real> std::vector<Real> randomParts(int count, unsigned seed, int spread = 0)
{
    std::mt19937 generator(seed);
    std::vector<Real> parts;
    for (int i = 0; i < count; ++i) {
        const double mantissa = std::uniform_real_distribution<double>(-1, 1)(generator);
        const int exponent = std::uniform_int_distribution<int>(-spread, spread)(generator);
        parts.push_back(static_cast<Real>(std::ldexp(mantissa, exponent)));
    }
    return parts;
}

// One part and nothing else.
template <typename Real> std::vector<Real> unitPart(int count, int part)
{
    std::vector<Real> parts(count);
    parts[part] = 1;
    return parts;
}

inline int slotCount(Layout layout, int parts)
{
    return layout == Layout::CCS ? parts + 2 - parts % 2 : parts;
}

inline int slotOf(Layout layout, int parts, int part)
{
    if (part == 0 || layout == Layout::InOrder || (layout == Layout::Perm && parts % 2 == 1))
        return part;
    return layout == Layout::Perm && part == parts - 1 ? 1 : part + 1;
}

template <typename Real>
std::vector<Real> arranged(const std::vector<Real>& parts, Layout layout, Real rest = nan<Real>)
{
    const int count = static_cast<int>(parts.size());
    std::vector<Real> slots(slotCount(layout, count), rest);
    for (int part = 0; part < count; ++part)
        slots[slotOf(layout, count, part)] = parts[part];
    return slots;
}

// The whole array that a kernel makes of the array at src.
template <typename Real>
std::vector<Real> resultOf(const Kernel<Real>& kernel, const Real* src, RvnScaleFlag flag,
                           Real unwritten = nan<Real>)
{
    std::vector<Real> slots(slotCount(kernel.destination(), kernel.parts()), unwritten);
    EXPECT_EQ(kernel.run(src, slots.data(), flag), RvnStatusNoError) << kernel.name;
    return slots;
}

// From parts to parts.
template <typename Real>
std::vector<Real> transformed(const Kernel<Real>& kernel, const std::vector<Real>& parts,
                              RvnScaleFlag flag, Real unwritten = nan<Real>)
{
    const auto slots = resultOf(kernel, arranged(parts, kernel.source()).data(), flag, unwritten);
    std::vector<Real> result;
    for (int part = 0; part < kernel.parts(); ++part)
        result.push_back(slots[slotOf(kernel.destination(), kernel.parts(), part)]);
    return result;
}

template <typename Real> bool haveSameBits(const std::vector<Real>& x, const std::vector<Real>& y)
{
    return x.size() == y.size() && std::memcmp(x.data(), y.data(), x.size() * sizeof(Real)) == 0;
}

using Reals = ::testing::Types<float, double>;

} // namespace rvn::tests
