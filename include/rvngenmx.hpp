/** @file rvngenmx.hpp
 * The transforms of rvngenmx.h for C++20: lengths in the type, spans for arrays.
 *
 * Header only: every function is inline and is the call of the C function that it names. What a
 * transform computes, its scale factors, aliasing and threads are described in rvngenmx.h.
 *
 *     #include <rvngenmx.hpp>       // c++ -std=c++20 program.cpp -lrvngenmx
 *
 *     std::array<std::complex<double>, 48> x, X;
 *     ...
 *     if (rvng::dftForward<48>(x, X, rvng::Scale::None) != rvng::Status::NoError)
 *         ...
 *     std::array<float, 48> signal;
 *     std::array<float, rvng::Ccs::size(48)> spectrum;
 *     rvng::Status status = rvng::dftForward<rvng::Ccs, 48>(signal, spectrum, rvng::Scale::None);
 *     float real = spectrum[rvng::Ccs::re(5, 48)], imaginary = spectrum[rvng::Ccs::im(5, 48)];
 *
 * Conventions of every function below
 *
 * - Lengths: with the length as a template argument the call is that of the kernel, and arrays and
 *   spans of another extent, or of an extent that is not known, do not compile: a static_assert
 *   says what would. A span whose extent is dynamic becomes one of known extent by `first<48>()`.
 *   Without the template argument the length is that of the signal, and the call is that of the
 *   dispatcher.
 *
 * - Elements: float and double; `std::complex<float>` for Rvn32fc, `std::complex<double>` for
 *   Rvn64fc.
 *
 * - Statuses: those of the C function. Where a length is known at run time only, also
 *   Status::SizeError, before anything else is looked at, when the two spans do not fit each other.
 *   A refused call has read and written nothing. Nothing throws; the transforms do not say so by
 *   noexcept, under which a compiler makes no tail call.
 */
#ifndef RVNGENMX_HPP
#define RVNGENMX_HPP

#if __cplusplus < 202002L
#error "rvngenmx.hpp is C++20: compile with -std=c++20, or use rvngenmx.h"
#else

#include <rvngenmx.h>

#include <bit>
#include <complex>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

/// The transforms for C++20; what holds for all of them is told at rvngenmx.hpp.
namespace rvng
{

// ---- Types -------------------------------------------------------------------------------------

/// The result of a call; a call whose status is dropped is worth a warning.
enum class [[nodiscard]] Status : RvnStatus{
    NoError = RvnStatusNoError, BadMode = RvnStatusBadMode, SizeError = RvnStatusSizeError,
    NullPointer = RvnStatusNullPointer, FlagError = RvnStatusFlagError};

/// Where the factor 1/N goes.
enum class Scale : RvnScaleFlag {
    ForwardByN = RvnScaleFwdByN,
    InverseByN = RvnScaleInvByN,
    BySqrtN = RvnScaleBySqrtN,
    None = RvnScaleNone
};

/// The library's constant version record.
inline const RvnLibraryVersion& version()
{
    return *rvngenGetLibVersion();
}

// ---- Layouts of a real signal's spectrum -------------------------------------------------------

/* A layout tells, for N real samples, how many elements the spectrum has and in which of them R(k)
 * and I(k) lie: re(k, N) for k from 0 to N/2, im(k, N) where hasIm(k, N). I(0) and, for even N,
 * I(N/2) are zero and have no place but in CCS, which stores them: there im() serves every k. */

/// True where the imaginary part of a bin is not zero by itself: 0 < k < N/2.
constexpr bool hasIm(std::size_t k, std::size_t N) noexcept
{
    return 0 < k && 2 * k < N;
}

/// Pairs of a complex array: R(0) 0 R(1) I(1) ...
struct Ccs {
    /// Elements of the spectrum of N samples.
    static constexpr std::size_t size(std::size_t N) noexcept { return N + 2 - N % 2; }
    /// Where R(k) lies.
    static constexpr std::size_t re(std::size_t k, std::size_t) noexcept { return 2 * k; }
    /// Where I(k) lies.
    static constexpr std::size_t im(std::size_t k, std::size_t) noexcept { return 2 * k + 1; }
};

/// R(0) R(1) I(1) R(2) ... and R(N/2) last for even N.
struct Pack {
    /// Elements of the spectrum of N samples.
    static constexpr std::size_t size(std::size_t N) noexcept { return N; }
    /// Where R(k) lies.
    static constexpr std::size_t re(std::size_t k, std::size_t) noexcept
    {
        return k == 0 ? 0 : 2 * k - 1;
    }
    /// Where I(k) lies.
    static constexpr std::size_t im(std::size_t k, std::size_t) noexcept { return 2 * k; }
};

/// R(0) R(N/2) R(1) I(1) ... for even N, as Pack for odd N.
struct Perm {
    /// Elements of the spectrum of N samples.
    static constexpr std::size_t size(std::size_t N) noexcept { return N; }
    /// Where R(k) lies.
    static constexpr std::size_t re(std::size_t k, std::size_t N) noexcept
    {
        if (N % 2 == 1)
            return Pack::re(k, N);
        return 2 * k == N ? 1 : 2 * k;
    }
    /// Where I(k) lies.
    static constexpr std::size_t im(std::size_t k, std::size_t N) noexcept
    {
        return N % 2 == 1 ? Pack::im(k, N) : 2 * k + 1;
    }
};

/// Ccs, Pack or Perm: size(N), re(k, N) for k from 0 to N/2, im(k, N) where hasIm(k, N).
template <typename T>
concept Layout = std::same_as<T, Ccs> || std::same_as<T, Pack> || std::same_as<T, Perm>;

/// An array of a length that has a kernel, 2 to 64.
template <typename T, std::size_t N>
requires(2 <= N && N <= 64) using Signal = std::span<T, N>;

/// An array of 2^order elements, for an order that has a Walsh-Hadamard kernel, 1 to 13.
template <typename T, std::size_t order>
requires(1 <= order && order <= 13) using PowerOfTwo = std::span<T, std::size_t{1} << order>;

/// float or double.
template <typename T>
concept Real = std::same_as<T, float> || std::same_as<T, double>;

// ---- From a length and an element to the C function --------------------------------------------

namespace detail
{

struct Interleaved; // the layout of complex signals

template <typename L> struct Forward;
template <typename L> struct Inverse;
struct Hartley;
struct Wht;

using Element32f = float;
using Element64f = double;
using Element32fc = std::complex<float>;
using Element64fc = std::complex<double>;

template <typename Transform, typename Element> inline constexpr auto dispatcher = nullptr;

// For Wht the size is an order.
template <typename Transform, typename Element, std::size_t size>
inline constexpr auto kernel = nullptr;

#define RVNG_FACE_KERNEL(size, Transform, function, suffix)                                        \
    template <>                                                                                    \
    inline constexpr auto kernel<Transform, Element##suffix, size> =                               \
        &function##_##size##_##suffix;

#define RVNG_FACE_TRANSFORM(SIZES, Transform, function, suffix)                                    \
    template <>                                                                                    \
    inline constexpr auto dispatcher<Transform, Element##suffix> = &function##_##suffix;           \
    SIZES(RVNG_FACE_KERNEL, Transform, function, suffix)

RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Interleaved>, rvngDFTFwd_CToC, 32fc)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Interleaved>, rvngDFTFwd_CToC, 64fc)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Interleaved>, rvngDFTInv_CToC, 32fc)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Interleaved>, rvngDFTInv_CToC, 64fc)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Ccs>, rvngDFTFwd_RToCCS, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Ccs>, rvngDFTFwd_RToCCS, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Pack>, rvngDFTFwd_RToPack, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Pack>, rvngDFTFwd_RToPack, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Perm>, rvngDFTFwd_RToPerm, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Forward<Perm>, rvngDFTFwd_RToPerm, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Ccs>, rvngDFTInv_CCSToR, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Ccs>, rvngDFTInv_CCSToR, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Pack>, rvngDFTInv_PackToR, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Pack>, rvngDFTInv_PackToR, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Perm>, rvngDFTInv_PermToR, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Inverse<Perm>, rvngDFTInv_PermToR, 64f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Hartley, rvngHartley, 32f)
RVNG_FACE_TRANSFORM(RVNG_LENGTHS_2_TO_64, Hartley, rvngHartley, 64f)
RVNG_FACE_TRANSFORM(RVNG_ORDERS_1_TO_13, Wht, rvngWHT, 32f)
RVNG_FACE_TRANSFORM(RVNG_ORDERS_1_TO_13, Wht, rvngWHT, 64f)

#undef RVNG_FACE_TRANSFORM
#undef RVNG_FACE_KERNEL

inline const float* plain(const float* x)
{
    return x;
}
inline float* plain(float* x)
{
    return x;
}
inline const double* plain(const double* x)
{
    return x;
}
inline double* plain(double* x)
{
    return x;
}
inline const Rvn32fc* plain(const std::complex<float>* x)
{
    return reinterpret_cast<const Rvn32fc*>(x);
}
inline Rvn32fc* plain(std::complex<float>* x)
{
    return reinterpret_cast<Rvn32fc*>(x);
}
inline const Rvn64fc* plain(const std::complex<double>* x)
{
    return reinterpret_cast<const Rvn64fc*>(x);
}
inline Rvn64fc* plain(std::complex<double>* x)
{
    return reinterpret_cast<Rvn64fc*>(x);
}

// A number of elements as the C functions take it, or one that they refuse.
inline std::int32_t count(std::size_t size)
{
    return std::in_range<std::int32_t>(size) ? static_cast<std::int32_t>(size) : -1;
}

// The kernel for N, whatever the extents: a spectrum may have more elements than its signal.
template <typename Transform, std::size_t N, typename Element, std::size_t In, std::size_t Out>
Status run(std::span<const Element, In> in, std::span<Element, Out> out, Scale scale)
{
    return Status{kernel<Transform, Element, N>(plain(in.data()), plain(out.data()),
                                                static_cast<RvnScaleFlag>(scale))};
}

template <typename Transform, typename Element>
Status dispatch(bool fit, std::size_t N, std::span<const Element> in, std::span<Element> out,
                Scale scale)
{
    if (!fit)
        return Status::SizeError;
    return Status{dispatcher<Transform, Element>(plain(in.data()), plain(out.data()), count(N),
                                                 static_cast<RvnScaleFlag>(scale))};
}

} // namespace detail

// ---- Complex DFT -------------------------------------------------------------------------------

/// Forward DFT of N complex numbers, 2 <= N <= 64: `rvngDFTFwd_CToC_<N>_32fc` and _64fc.
/// in, out: N elements each. Statuses: NoError, NullPointer, FlagError.
template <std::size_t N>
Status dftForward(Signal<const std::complex<float>, N> in, Signal<std::complex<float>, N> out,
                  Scale scale)
{
    return detail::run<detail::Forward<detail::Interleaved>, N>(in, out, scale);
}

/// The same for double.
template <std::size_t N>
Status dftForward(Signal<const std::complex<double>, N> in, Signal<std::complex<double>, N> out,
                  Scale scale)
{
    return detail::run<detail::Forward<detail::Interleaved>, N>(in, out, scale);
}

/// Inverse DFT of N complex numbers: `rvngDFTInv_CToC_<N>_32fc` and _64fc. As dftForward.
template <std::size_t N>
Status dftInverse(Signal<const std::complex<float>, N> in, Signal<std::complex<float>, N> out,
                  Scale scale)
{
    return detail::run<detail::Inverse<detail::Interleaved>, N>(in, out, scale);
}

/// The same for double.
template <std::size_t N>
Status dftInverse(Signal<const std::complex<double>, N> in, Signal<std::complex<double>, N> out,
                  Scale scale)
{
    return detail::run<detail::Inverse<detail::Interleaved>, N>(in, out, scale);
}

/// The same with N = in.size() at run time: rvngDFTFwd_CToC_32fc and _64fc.
/// in, out: N elements each. Statuses: NoError, SizeError (N below 2 or above 64, or spans of
/// different sizes), NullPointer, FlagError.
inline Status dftForward(std::span<const std::complex<float>> in,
                         std::span<std::complex<float>> out, Scale scale)
{
    return detail::dispatch<detail::Forward<detail::Interleaved>>(in.size() == out.size(),
                                                                  in.size(), in, out, scale);
}

/// The same for double.
inline Status dftForward(std::span<const std::complex<double>> in,
                         std::span<std::complex<double>> out, Scale scale)
{
    return detail::dispatch<detail::Forward<detail::Interleaved>>(in.size() == out.size(),
                                                                  in.size(), in, out, scale);
}

/// As the run-time dftForward: rvngDFTInv_CToC_32fc and _64fc.
inline Status dftInverse(std::span<const std::complex<float>> in,
                         std::span<std::complex<float>> out, Scale scale)
{
    return detail::dispatch<detail::Inverse<detail::Interleaved>>(in.size() == out.size(),
                                                                  in.size(), in, out, scale);
}

/// The same for double.
inline Status dftInverse(std::span<const std::complex<double>> in,
                         std::span<std::complex<double>> out, Scale scale)
{
    return detail::dispatch<detail::Inverse<detail::Interleaved>>(in.size() == out.size(),
                                                                  in.size(), in, out, scale);
}

// ---- Real DFT ----------------------------------------------------------------------------------

/// DFT of N real numbers into a layout L, 2 <= N <= 64: `rvngDFTFwd_RTo<L>_<N>_32f` and _64f.
/// in: the signal, N elements; out: the spectrum, L::size(N) elements.
/// Statuses: NoError, NullPointer, FlagError.
template <Layout L, std::size_t N>
Status dftForward(Signal<const float, N> in, std::span<float, L::size(N)> out, Scale scale)
{
    return detail::run<detail::Forward<L>, N>(in, out, scale);
}

/// The same for double.
template <Layout L, std::size_t N>
Status dftForward(Signal<const double, N> in, std::span<double, L::size(N)> out, Scale scale)
{
    return detail::run<detail::Forward<L>, N>(in, out, scale);
}

/// Back from a layout L: `rvngDFTInv_<L>ToR_<N>_32f` and _64f.
/// in: the spectrum, L::size(N) elements; out: the signal, N elements.
/// Statuses: NoError, NullPointer, FlagError.
template <Layout L, std::size_t N>
Status dftInverse(std::span<const float, L::size(N)> in, Signal<float, N> out, Scale scale)
{
    return detail::run<detail::Inverse<L>, N>(in, out, scale);
}

/// The same for double.
template <Layout L, std::size_t N>
Status dftInverse(std::span<const double, L::size(N)> in, Signal<double, N> out, Scale scale)
{
    return detail::run<detail::Inverse<L>, N>(in, out, scale);
}

/// The same with N = in.size() at run time: `rvngDFTFwd_RTo<L>_32f` and _64f.
/// in: N elements; out: L::size(N) elements. Statuses: NoError, SizeError (N below 2 or above 64,
/// or a spectrum of another size), NullPointer, FlagError.
template <Layout L> Status dftForward(std::span<const float> in, std::span<float> out, Scale scale)
{
    return detail::dispatch<detail::Forward<L>>(out.size() == L::size(in.size()), in.size(), in,
                                                out, scale);
}

/// The same for double.
template <Layout L>
Status dftForward(std::span<const double> in, std::span<double> out, Scale scale)
{
    return detail::dispatch<detail::Forward<L>>(out.size() == L::size(in.size()), in.size(), in,
                                                out, scale);
}

/// The same with N = out.size() at run time: `rvngDFTInv_<L>ToR_32f` and _64f.
/// in: L::size(N) elements; out: N elements. Statuses as those of the run-time dftForward.
template <Layout L> Status dftInverse(std::span<const float> in, std::span<float> out, Scale scale)
{
    return detail::dispatch<detail::Inverse<L>>(in.size() == L::size(out.size()), out.size(), in,
                                                out, scale);
}

/// The same for double.
template <Layout L>
Status dftInverse(std::span<const double> in, std::span<double> out, Scale scale)
{
    return detail::dispatch<detail::Inverse<L>>(in.size() == L::size(out.size()), out.size(), in,
                                                out, scale);
}

// ---- Hartley transform -------------------------------------------------------------------------

/// Hartley transform of N real numbers, 2 <= N <= 64: `rvngHartley_<N>_32f` and _64f.
/// in, out: N elements each. Statuses: NoError, NullPointer, FlagError.
template <std::size_t N>
Status hartley(Signal<const float, N> in, Signal<float, N> out, Scale scale)
{
    return detail::run<detail::Hartley, N>(in, out, scale);
}

/// The same for double.
template <std::size_t N>
Status hartley(Signal<const double, N> in, Signal<double, N> out, Scale scale)
{
    return detail::run<detail::Hartley, N>(in, out, scale);
}

/// The same with N = in.size() at run time: rvngHartley_32f and _64f.
/// in, out: N elements each. Statuses: NoError, SizeError (N below 2 or above 64, or spans of
/// different sizes), NullPointer, FlagError.
inline Status hartley(std::span<const float> in, std::span<float> out, Scale scale)
{
    return detail::dispatch<detail::Hartley>(in.size() == out.size(), in.size(), in, out, scale);
}

/// The same for double.
inline Status hartley(std::span<const double> in, std::span<double> out, Scale scale)
{
    return detail::dispatch<detail::Hartley>(in.size() == out.size(), in.size(), in, out, scale);
}

// ---- Walsh-Hadamard transform ------------------------------------------------------------------

/// Writes to bytes how much work memory an order needs: rvngWHTGetBufferSize_32f and _64f.
/// Statuses: NoError, SizeError (order outside 1 to 13; bytes is untouched then).
template <Real T> Status whtBufferSize(std::size_t order, std::size_t& bytes)
{
    std::int32_t size = 0;
    RvnStatus status;
    if constexpr (std::same_as<T, float>)
        status = rvngWHTGetBufferSize_32f(detail::count(order), &size);
    else
        status = rvngWHTGetBufferSize_64f(detail::count(order), &size);
    if (status == RvnStatusNoError)
        bytes = static_cast<std::size_t>(size);
    return Status{status};
}

namespace detail
{

template <std::size_t order, typename T, std::size_t N>
Status whtKernel(std::span<const T, N> in, std::span<T, N> out, Scale scale, void* buffer)
{
    return Status{
        kernel<Wht, T, order>(in.data(), out.data(), static_cast<RvnScaleFlag>(scale), buffer)};
}

template <typename T> bool holdsBuffer(std::size_t order, std::span<std::byte> buffer)
{
    std::size_t bytes = 0;
    return whtBufferSize<T>(order, bytes) == Status::NoError && bytes <= buffer.size();
}

// An order that the dispatcher refuses unless N is a power of two.
inline std::int32_t orderOf(std::size_t N)
{
    return std::has_single_bit(N) ? std::countr_zero(N) : -1;
}

template <typename T>
Status whtDispatch(std::span<const T> in, std::span<T> out, Scale scale, void* buffer)
{
    if (in.size() != out.size())
        return Status::SizeError;
    return Status{dispatcher<Wht, T>(in.data(), out.data(), orderOf(in.size()),
                                     static_cast<RvnScaleFlag>(scale), buffer)};
}

} // namespace detail

/// Walsh-Hadamard transform of an order from 1 to 13: `rvngWHT_<order>_32f` and _64f.
/// in, out: 2^order elements each. Work memory, from order 8 on, comes from rvnMalloc.
/// Statuses: NoError, NullPointer, FlagError.
template <std::size_t order>
Status wht(PowerOfTwo<const float, order> in, PowerOfTwo<float, order> out, Scale scale)
{
    return detail::whtKernel<order>(in, out, scale, nullptr);
}

/// The same for double.
template <std::size_t order>
Status wht(PowerOfTwo<const double, order> in, PowerOfTwo<double, order> out, Scale scale)
{
    return detail::whtKernel<order>(in, out, scale, nullptr);
}

/// The same with work memory of the caller's, of any alignment and apart from in and out.
/// buffer: at least the bytes that whtBufferSize tells, none up to order 7.
/// Statuses: also SizeError, before the others, for a buffer that is too small.
template <std::size_t order>
Status wht(PowerOfTwo<const float, order> in, PowerOfTwo<float, order> out, Scale scale,
           std::span<std::byte> buffer)
{
    if (!detail::holdsBuffer<float>(order, buffer))
        return Status::SizeError;
    return detail::whtKernel<order>(in, out, scale, buffer.data());
}

/// The same for double.
template <std::size_t order>
Status wht(PowerOfTwo<const double, order> in, PowerOfTwo<double, order> out, Scale scale,
           std::span<std::byte> buffer)
{
    if (!detail::holdsBuffer<double>(order, buffer))
        return Status::SizeError;
    return detail::whtKernel<order>(in, out, scale, buffer.data());
}

/// The same for N = in.size() = 2^order at run time: rvngWHT_32f and _64f.
/// in, out: N elements each. Statuses: NoError, SizeError (N no power of two from 2 to 2^13, or
/// spans of different sizes), NullPointer, FlagError.
inline Status wht(std::span<const float> in, std::span<float> out, Scale scale)
{
    return detail::whtDispatch(in, out, scale, nullptr);
}

/// The same for double.
inline Status wht(std::span<const double> in, std::span<double> out, Scale scale)
{
    return detail::whtDispatch(in, out, scale, nullptr);
}

/// The same with work memory of the caller's; SizeError also for a buffer that is too small.
inline Status wht(std::span<const float> in, std::span<float> out, Scale scale,
                  std::span<std::byte> buffer)
{
    if (!detail::holdsBuffer<float>(static_cast<std::size_t>(detail::orderOf(in.size())), buffer))
        return Status::SizeError;
    return detail::whtDispatch(in, out, scale, buffer.data());
}

/// The same for double.
inline Status wht(std::span<const double> in, std::span<double> out, Scale scale,
                  std::span<std::byte> buffer)
{
    if (!detail::holdsBuffer<double>(static_cast<std::size_t>(detail::orderOf(in.size())), buffer))
        return Status::SizeError;
    return detail::whtDispatch(in, out, scale, buffer.data());
}

// ---- DCT-IV ------------------------------------------------------------------------------------

namespace detail
{

template <typename T> struct Dct4;

#define RVNG_FACE_DCT4(suffix)                                                                     \
    template <> struct Dct4<Element##suffix> {                                                     \
        using Spec = RvnDCT4Spec_##suffix;                                                         \
        static constexpr auto getSize = &rvngDCT4GetSize_##suffix;                                 \
        static constexpr auto init = &rvngDCT4Init_##suffix;                                       \
        static constexpr auto initAlloc = &rvngDCT4InitAlloc_##suffix;                             \
        static constexpr auto free = &rvngDCT4Free_##suffix;                                       \
        static constexpr auto run = &rvngDCT4_##suffix;                                            \
    };

RVNG_FACE_DCT4(32f)
RVNG_FACE_DCT4(64f)

#undef RVNG_FACE_DCT4

} // namespace detail

/// A plan of the DCT-IV of N real numbers, N a power of two from 2 to largestSize. It can be moved
/// and not copied; an object that was moved from, or made by default, holds no plan.
///
/// Making a plan does not throw: an object without a plan refuses to run, so nothing that failed
/// can go unnoticed, and code without exceptions can use it. status() tells why.
///
///     rvng::Dct4<float> plan(1024);
///     if (plan.run(samples, coefficients) != rvng::Status::NoError)
///         ...
template <Real T> class Dct4
{
public:
    /// 2^27 for float, 2^26 for double.
    static constexpr std::size_t largestSize = std::size_t{1} << (sizeof(T) == 4 ? 27 : 26);

    /// Writes to bytes how large the block of a plan must be: rvngDCT4GetSize_32f and _64f.
    /// Statuses: NoError, SizeError (a size that is not served; bytes is untouched then).
    static Status blockSize(std::size_t N, std::size_t& bytes)
    {
        if (!isServed(N))
            return Status::SizeError;
        std::int32_t size = 0;
        const RvnStatus status = Functions::getSize(static_cast<std::int32_t>(N), &size);
        if (status == RvnStatusNoError)
            bytes = static_cast<std::size_t>(size);
        return Status{status};
    }

    /// No plan.
    Dct4() noexcept = default;

    /// A plan in memory from rvnMalloc: rvngDCT4InitAlloc_32f and _64f.
    /// status(): NoError, SizeError (a size that is not served), NullPointer (no memory).
    explicit Dct4(std::size_t N) noexcept
    {
        status_ = Status::SizeError;
        if (isServed(N))
            keep(N, Functions::initAlloc(&spec_, static_cast<std::int32_t>(N)), true);
    }

    /// A plan in the caller's block, of any alignment, which must stay where it is as long as the
    /// plan is used: rvngDCT4Init_32f and _64f.
    /// block: at least the bytes that blockSize tells. status(): NoError, SizeError (a size that is
    /// not served, or a block that is too small).
    Dct4(std::size_t N, std::span<std::byte> block) noexcept
    {
        std::size_t bytes = 0;
        status_ = blockSize(N, bytes);
        if (status_ == Status::NoError && block.size() < bytes)
            status_ = Status::SizeError;
        if (status_ == Status::NoError)
            keep(N, Functions::init(&spec_, static_cast<std::int32_t>(N), block.data()), false);
    }

    /// Takes the plan of other.
    Dct4(Dct4&& other) noexcept { swap(other); }

    /// Ends the plan held so far and takes that of other.
    Dct4& operator=(Dct4&& other) noexcept
    {
        Dct4 taken(std::move(other));
        swap(taken);
        return *this;
    }

    /// Ends the plan; a block of the caller's remains the caller's.
    ~Dct4()
    {
        if (ownsBlock_)
            Functions::free(spec_);
    }

    /// NoError for an object with a plan, else why there is none; NullPointer after a move.
    Status status() const noexcept { return status_; }
    /// Whether there is a plan.
    explicit operator bool() const noexcept { return status_ == Status::NoError; }

    /// N, or 0 without a plan.
    std::size_t size() const noexcept { return size_; }

    /// The transform: rvngDCT4_32f and _64f. Not const: a plan from 64 points on holds intermediate
    /// results and serves one call at a time.
    /// in, out: N elements each, equal or overlapping in any way.
    /// Statuses: NoError, NullPointer (no plan), SizeError (spans of another size).
    Status run(std::span<const T> in, std::span<T> out)
    {
        if (spec_ != nullptr && (in.size() != size_ || out.size() != size_))
            return Status::SizeError;
        return Status{Functions::run(in.data(), out.data(), spec_)};
    }

private:
    using Functions = detail::Dct4<T>;

    // The C functions leave some sizes unchecked that compute no DCT-IV.
    static bool isServed(std::size_t N) noexcept
    {
        return std::has_single_bit(N) && 2 <= N && N <= largestSize;
    }

    void keep(std::size_t N, RvnStatus status, bool ownsBlock) noexcept
    {
        status_ = Status{status};
        if (status_ == Status::NoError) {
            size_ = N;
            ownsBlock_ = ownsBlock;
        }
    }

    void swap(Dct4& other) noexcept
    {
        std::swap(spec_, other.spec_);
        std::swap(size_, other.size_);
        std::swap(status_, other.status_);
        std::swap(ownsBlock_, other.ownsBlock_);
    }

    typename Functions::Spec* spec_ = nullptr;
    std::size_t size_ = 0;
    Status status_ = Status::NullPointer;
    bool ownsBlock_ = false;
};

// ---- What does not fit -------------------------------------------------------------------------

/// @cond
/* Calls with the length as a template argument that no function above takes: without these a
 * compiler lists every candidate and why it is none. */

namespace detail
{

template <typename In, typename Out, typename T, std::size_t in, std::size_t out>
inline constexpr bool areSpans =
    std::convertible_to<In, std::span<const T, in>>&& std::convertible_to<Out, std::span<T, out>>;

template <typename In, typename Out, std::size_t in, std::size_t out>
inline constexpr bool areReal =
    areSpans<In, Out, float, in, out> || areSpans<In, Out, double, in, out>;

template <typename In, typename Out, std::size_t N>
inline constexpr bool fitComplex = 2 <= N&& N <= 64 &&
                                   (areSpans<In, Out, std::complex<float>, N, N> ||
                                    areSpans<In, Out, std::complex<double>, N, N>);

template <typename L> constexpr std::size_t spectrumSize(std::size_t N)
{
    if constexpr (Layout<L>)
        return L::size(N);
    else
        return 0;
}

template <typename Signal, typename Spectrum, typename L, std::size_t N>
inline constexpr bool fitForward =
    Layout<L> && 2 <= N&& N <= 64 && areReal<Signal, Spectrum, N, spectrumSize<L>(N)>;

template <typename Spectrum, typename Signal, typename L, std::size_t N>
inline constexpr bool fitInverse =
    Layout<L> && 2 <= N&& N <= 64 && areReal<Spectrum, Signal, spectrumSize<L>(N), N>;

template <typename In, typename Out, std::size_t N>
inline constexpr bool fitHartley = 2 <= N&& N <= 64 && areReal<In, Out, N, N>;

template <typename In, typename Out, std::size_t order, typename... Buffer>
inline constexpr bool
    fitWht = 1 <= order&& order <= 13 &&
             (std::convertible_to<Buffer, std::span<std::byte>> && ...) &&
             areReal<In, Out, std::size_t{1} << order % 16, std::size_t{1} << order % 16>;

} // namespace detail

template <std::size_t N, typename In, typename Out>
requires(!detail::fitComplex<In, Out, N>) Status dftForward(In&&, Out&&, Scale)
{
    static_assert(detail::fitComplex<In, Out, N>,
                  "rvng::dftForward<N> takes N from 2 to 64 and two arrays or spans of N "
                  "std::complex<float>, or of N std::complex<double>");
    return Status::SizeError;
}

template <std::size_t N, typename In, typename Out>
requires(!detail::fitComplex<In, Out, N>) Status dftInverse(In&&, Out&&, Scale)
{
    static_assert(detail::fitComplex<In, Out, N>,
                  "rvng::dftInverse<N> takes N from 2 to 64 and two arrays or spans of N "
                  "std::complex<float>, or of N std::complex<double>");
    return Status::SizeError;
}

template <typename L, std::size_t N, typename In, typename Out>
requires(!detail::fitForward<In, Out, L, N>) Status dftForward(In&&, Out&&, Scale)
{
    static_assert(detail::fitForward<In, Out, L, N>,
                  "rvng::dftForward<L, N> takes L = Ccs, Pack or Perm, N from 2 to 64, an array or "
                  "span of N and one of L::size(N) elements, both float or both double");
    return Status::SizeError;
}

template <typename L, std::size_t N, typename In, typename Out>
requires(!detail::fitInverse<In, Out, L, N>) Status dftInverse(In&&, Out&&, Scale)
{
    static_assert(detail::fitInverse<In, Out, L, N>,
                  "rvng::dftInverse<L, N> takes L = Ccs, Pack or Perm, N from 2 to 64, an array or "
                  "span of L::size(N) and one of N elements, both float or both double");
    return Status::SizeError;
}

template <std::size_t N, typename In, typename Out>
requires(!detail::fitHartley<In, Out, N>) Status hartley(In&&, Out&&, Scale)
{
    static_assert(detail::fitHartley<In, Out, N>,
                  "rvng::hartley<N> takes N from 2 to 64 and two arrays or spans of N float, or of "
                  "N double");
    return Status::SizeError;
}

template <std::size_t order, typename In, typename Out, typename... Buffer>
requires(!detail::fitWht<In, Out, order, Buffer...>) Status wht(In&&, Out&&, Scale, Buffer&&...)
{
    static_assert(detail::fitWht<In, Out, order, Buffer...>,
                  "rvng::wht<order> takes an order from 1 to 13 and two arrays or spans of 2^order "
                  "float, or of 2^order double; a buffer is a span of std::byte");
    return Status::SizeError;
}

/// @endcond

} // namespace rvng

#endif

#endif
