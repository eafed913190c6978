/** @file rvngenmx.h
 * Small, fast linear transforms for signal processing.
 *
 * Every transform of a fixed length is one exported function, a kernel: scalar arithmetic, no
 * table, no state, no allocation (but for the work memory of long Walsh-Hadamard transforms). A
 * dispatcher per family takes the length at run time. The DCT-IV of power-of-two sizes is planned
 * once into a block of memory and run many times. The header is C99 and C++.
 *
 * A complete program, the spectrum of four complex samples:
 *
 *     #include <rvngenmx.h>
 *     #include <stdio.h>
 *
 *     int main(void)
 *     {
 *         const Rvn64fc x[4] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
 *         Rvn64fc X[4];
 *         if (rvngDFTFwd_CToC_4_64fc(x, X, RvnScaleFwdByN) != RvnStatusNoError)
 *             return 1;
 *         for (int k = 0; k < 4; ++k)
 *             printf("X[%d] = %+.3f %+.3fi\n", k, X[k].re, X[k].im);
 *         return 0; // X[1] was 1, the others 0
 *     }
 */

/**
 * @page conventions Conventions of every function
 *
 * - Names: `rvng<Transform>_<length>_<element>` is a kernel, without the length a dispatcher.
 *   Walsh-Hadamard names have the order in place of the length.
 *
 * - Elements: 32f, 64f: one IEEE-754 binary32 or binary64 value; 32fc, 64fc: a pair of them, real
 *   part first. Arrays are plain and contiguous.
 *
 * - Statuses, in this order of precedence: a dispatcher returns #RvnStatusSizeError for a length
 *   out of range; a kernel returns #RvnStatusNullPointer for a null src, then for a null dst, then
 *   #RvnStatusFlagError for a flag other than 1, 2, 4, 8; else #RvnStatusNoError. A refused call
 *   has read and written nothing. Values are never tested: NaN and infinity run through the
 *   arithmetic.
 *
 * - Scale: the flag selects the factor S in the formulas; the table is at #RvnScaleFlag.
 *
 * - Aliasing: a kernel finishes all reads of src before its first write to dst: they may be equal
 *   or overlap in any way. No alignment is needed, not even that of an element.
 *
 * - Threads: kernels and dispatchers are pure functions of their arguments and of the calling
 *   thread's rounding mode and treatment of subnormals, which they do not change. Their arithmetic
 *   raises the status flags of IEEE-754 like any other.
 *
 * - Stack: a kernel uses its stack frame and nothing else, at most 2 KiB in the optimised build.
 *   (Walsh-Hadamard orders 8 to 13 also use work memory; see there.) A DCT-IV of 8192 points or
 *   more uses up to 40 KiB.
 */
#ifndef RVNGENMX_H
#define RVNGENMX_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define RVNG_API __attribute__((visibility("default")))
#else
#define RVNG_API
#endif

/* ---- Types ---------------------------------------------------------------------------------- */

/**
 * @defgroup types Types, statuses, scale factors
 * What the functions take and return.
 * @{
 */

/** One complex number in binary32, laid out like the C type float _Complex. */
typedef struct Rvn32fc {
    float re; /**< real part */
    float im; /**< imaginary part */
} Rvn32fc;

/** One complex number in binary64, laid out like the C type double _Complex. */
typedef struct Rvn64fc {
    double re; /**< real part */
    double im; /**< imaginary part */
} Rvn64fc;

/** The result of a call. A plain integer with enumerators beside it, so that any value a caller
 * passes or compares is well defined in C and in C++. */
typedef int32_t RvnStatus;

/** The values of #RvnStatus. */
enum {
    RvnStatusNoError = 0,      /**< the transform was carried out */
    RvnStatusBadMode = -5,     /**< a plan is damaged; never of a plan that an initialiser built */
    RvnStatusSizeError = -6,   /**< a length, order or size is not served; never from a kernel */
    RvnStatusNullPointer = -8, /**< a pointer is null, or memory could not be had */
    RvnStatusFlagError = -16   /**< the flag is none of 1, 2, 4, 8 */
};

/**
 * Selects the scale factor S, N the length. Plain values and not bits: 3 is invalid.
 *
 *     flag                   RvnScaleFwdByN  RvnScaleInvByN  RvnScaleBySqrtN  RvnScaleNone
 *     value                               1               2                4             8
 *     rvngDFTFwd_...                    1/N               1        1/sqrt(N)             1
 *     rvngDFTInv_...                      1             1/N        1/sqrt(N)             1
 *     rvngHartley_..., rvngWHT_...      1/N             1/N        1/sqrt(N)             1
 *
 * In 64f and 64fc, 1/sqrt(N) is the value of 1.0 / sqrt(N), rounded twice; in 32f and 32fc that
 * value rounded to binary32.
 *
 * A forward DFT followed by an inverse one with the same flag returns the input for flags 1, 2 and
 * 4, and N times the input for flag 8. The Hartley and the Walsh-Hadamard transform are their own
 * inverses up to N: applied twice, they return the input for flag 4, N times the input for flag 8,
 * and the input divided by N for flags 1 and 2.
 */
typedef int32_t RvnScaleFlag;

/** The values of #RvnScaleFlag. */
enum {
    RvnScaleFwdByN = 1,  /**< the forward transform carries 1/N */
    RvnScaleInvByN = 2,  /**< the inverse transform carries 1/N */
    RvnScaleBySqrtN = 4, /**< both directions carry 1/sqrt(N) */
    RvnScaleNone = 8     /**< no factor in either direction */
};

/** @} */

/* ---- Version -------------------------------------------------------------------------------- */

/**
 * @defgroup version Version
 * Which library this is.
 * @{
 */

/** The library's version record. */
typedef struct RvnLibraryVersion {
    int32_t major;         /**< 6 */
    int32_t minor;         /**< 1 */
    int32_t majorBuild;    /**< 137 */
    int32_t build;         /**< 336; the number after the point in version is another one */
    char targetCode[4];    /**< "mx", filled with zeros */
    const char* name;      /**< file name and soname of the library */
    const char* version;   /**< for people */
    const char* buildDate; /**< for people */
} RvnLibraryVersion;

/** Returns the library's constant version record: the same address at every call, owned by the
 * library. Cannot fail. */
RVNG_API const RvnLibraryVersion* rvngenGetLibVersion(void);

/** @} */

/* ---- A list of every length ------------------------------------------------------------------ */

/** RVNG_LENGTHS_2_TO_64(M, a, b, c) is M(2, a, b, c) M(3, a, b, c) ... M(64, a, b, c). */
/* clang-format off */
#define RVNG_LENGTHS_2_TO_64(M, a, b, c)                                                           \
    M(2, a, b, c) M(3, a, b, c) M(4, a, b, c) M(5, a, b, c) M(6, a, b, c) M(7, a, b, c)            \
    M(8, a, b, c) M(9, a, b, c) M(10, a, b, c) M(11, a, b, c) M(12, a, b, c) M(13, a, b, c)        \
    M(14, a, b, c) M(15, a, b, c) M(16, a, b, c) M(17, a, b, c) M(18, a, b, c) M(19, a, b, c)      \
    M(20, a, b, c) M(21, a, b, c) M(22, a, b, c) M(23, a, b, c) M(24, a, b, c) M(25, a, b, c)      \
    M(26, a, b, c) M(27, a, b, c) M(28, a, b, c) M(29, a, b, c) M(30, a, b, c) M(31, a, b, c)      \
    M(32, a, b, c) M(33, a, b, c) M(34, a, b, c) M(35, a, b, c) M(36, a, b, c) M(37, a, b, c)      \
    M(38, a, b, c) M(39, a, b, c) M(40, a, b, c) M(41, a, b, c) M(42, a, b, c) M(43, a, b, c)      \
    M(44, a, b, c) M(45, a, b, c) M(46, a, b, c) M(47, a, b, c) M(48, a, b, c) M(49, a, b, c)      \
    M(50, a, b, c) M(51, a, b, c) M(52, a, b, c) M(53, a, b, c) M(54, a, b, c) M(55, a, b, c)      \
    M(56, a, b, c) M(57, a, b, c) M(58, a, b, c) M(59, a, b, c) M(60, a, b, c) M(61, a, b, c)      \
    M(62, a, b, c) M(63, a, b, c) M(64, a, b, c)
/* clang-format on */

/** RVNG_ORDERS_1_TO_13(M, a, b, c) is M(1, a, b, c) M(2, a, b, c) ... M(13, a, b, c). */
/* clang-format off */
#define RVNG_ORDERS_1_TO_13(M, a, b, c)                                                            \
    M(1, a, b, c) M(2, a, b, c) M(3, a, b, c) M(4, a, b, c) M(5, a, b, c) M(6, a, b, c)            \
    M(7, a, b, c) M(8, a, b, c) M(9, a, b, c) M(10, a, b, c) M(11, a, b, c) M(12, a, b, c)         \
    M(13, a, b, c)
/* clang-format on */

/* ---- Complex DFT ---------------------------------------------------------------------------- */

/**
 * @defgroup complex_dft Complex DFT
 * Discrete Fourier transform of N complex numbers, N from 2 to 64, and back.
 *
 *     RvnStatus rvngDFTFwd_CToC_<N>_64fc(const Rvn64fc* src, Rvn64fc* dst, RvnScaleFlag flag);
 *     RvnStatus rvngDFTFwd_CToC_64fc(const Rvn64fc* src, Rvn64fc* dst, int32_t len,
 *                                    RvnScaleFlag flag);
 *
 * are a kernel, one for every N, and the dispatcher; the like with Inv, with 32fc and Rvn32fc.
 * Dispatchers return RvnStatusSizeError for len outside 2 to 64, before anything else is looked at.
 * They call the kernel by its exported name, so that an interposed kernel is found. Statuses,
 * aliasing, threads: see @ref conventions.
 *
 * The arithmetic of a length is fixed: direct for 2, 3, 5, 7; Cooley and Tukey 1965 for the other
 * prime powers; Good 1958 and Thomas 1963 for coprime factors; Rader 1968 for primes from 11. In
 * 32fc each expression with constants is evaluated in binary64 and rounded once. The inverse is
 * the forward transform with real and imaginary parts exchanged on both sides.
 * @{
 */

/**
 * @defgroup rvngDFTFwd_CToC Complex DFT, forward
 * The spectrum of N complex numbers.
 *
 *     dst[k] = S * sum over n of src[n] * exp(-2 pi i n k / N),  k and n from 0 to N - 1
 *
 * src and dst hold N elements each.
 */

/**
 * @defgroup rvngDFTInv_CToC Complex DFT, inverse
 * N complex numbers from their spectrum.
 *
 *     dst[n] = S * sum over k of src[k] * exp(+2 pi i n k / N),  n and k from 0 to N - 1
 *
 * src and dst hold N elements each.
 */

/** @} */

/* ---- Real DFT ------------------------------------------------------------------------------- */

/**
 * @defgroup real_dft Real DFT
 * Discrete Fourier transform of N real numbers, N from 2 to 64, to three layouts, and back.
 *
 *     X[k] = sum over n of x[n] * exp(-2 pi i n k / N) = R(k) + i I(k),  k = 0 to N/2,
 *
 * of which the forward transform writes S * R(k) and S * I(k), in one of three layouts. The inverse
 * takes such a spectrum for the half of a conjugate-symmetric one:
 *
 *     y[n] = S * (R(0) + 2 * sum over k of (R(k) cos(2 pi n k / N) - I(k) sin(2 pi n k / N))
 *                 + (-1)^n R(N/2)),  k = 1 to (N - 1)/2, the last term for even N only.
 *
 * The signal holds N elements. The layouts, slot by slot, for N = 8 and N = 7:
 *
 *     slot        0     1     2     3     4     5     6     7     8     9
 *     CCS   8   R(0)    0   R(1)  I(1)  R(2)  I(2)  R(3)  I(3)  R(4)    0
 *     Pack  8   R(0)  R(1)  I(1)  R(2)  I(2)  R(3)  I(3)  R(4)
 *     Perm  8   R(0)  R(4)  R(1)  I(1)  R(2)  I(2)  R(3)  I(3)
 *     CCS   7   R(0)    0   R(1)  I(1)  R(2)  I(2)  R(3)  I(3)
 *     Pack  7   R(0)  R(1)  I(1)  R(2)  I(2)  R(3)  I(3)             Perm 7 is the same
 *
 * CCS holds N + 2 elements for even and N + 1 for odd N, pairs of a complex array; Pack and Perm
 * hold N. The forward transform stores +0.0 in the slots shown as 0 whatever the input, the inverse
 * never reads them. The layouts hold the same values, bit for bit. The inverse doubles R(k) and
 * I(k) first: above half of the largest finite number that may become infinite.
 *
 *     RvnStatus rvngDFTFwd_RToCCS_<N>_64f(const double* src, double* dst, RvnScaleFlag flag);
 *     RvnStatus rvngDFTFwd_RToCCS_64f(const double* src, double* dst, int32_t len,
 *                                     RvnScaleFlag flag);
 *
 * are a kernel, one for every N, and the dispatcher; the like with the other five transforms, and
 * with 32f and float. Statuses, aliasing, threads: see @ref conventions.
 *
 * The arithmetic is a plan of its own, about half of the complex one of the length: each stage
 * knows which of its values are real and which are conjugates of others, and forms half of them.
 * In 32f, expressions with constants are evaluated in binary64 and rounded once.
 * @{
 */

/**
 * @defgroup rvngDFTFwd_RToCCS Real DFT, forward, to CCS
 * The spectrum of a real signal as pairs of a complex array.
 *
 *     src   the signal x: N elements
 *     dst   R(0) 0 R(1) I(1) ..., each times S: N + 2 elements for even, N + 1 for odd N
 *
 * R(k) + i I(k) = sum over n of x[n] exp(-2 pi i n k / N); slot by slot: @ref real_dft.
 */

/**
 * @defgroup rvngDFTFwd_RToPack Real DFT, forward, to Pack
 * The spectrum of a real signal in as many elements.
 *
 *     src   the signal x: N elements
 *     dst   R(0) R(1) I(1) ..., for even N R(N/2) last, each times S: N elements
 *
 * R(k) + i I(k) = sum over n of x[n] exp(-2 pi i n k / N); slot by slot: @ref real_dft.
 */

/**
 * @defgroup rvngDFTFwd_RToPerm Real DFT, forward, to Perm
 * The spectrum of a real signal in as many elements, pairs at even places.
 *
 *     src   the signal x: N elements
 *     dst   R(0) R(N/2) R(1) I(1) ..., without R(N/2) for odd N, each times S: N elements
 *
 * R(k) + i I(k) = sum over n of x[n] exp(-2 pi i n k / N); slot by slot: @ref real_dft.
 */

/**
 * @defgroup rvngDFTInv_CCSToR Real DFT, inverse, from CCS
 * A real signal from its spectrum as pairs of a complex array.
 *
 *     src   R(0) 0 R(1) I(1) ...: N + 2 elements for even, N + 1 for odd N
 *     dst   the signal y: N elements
 *
 * The sum that y is, and the layout slot by slot: @ref real_dft.
 */

/**
 * @defgroup rvngDFTInv_PackToR Real DFT, inverse, from Pack
 * A real signal from its spectrum in as many elements.
 *
 *     src   R(0) R(1) I(1) ..., for even N R(N/2) last: N elements
 *     dst   the signal y: N elements
 *
 * The sum that y is, and the layout slot by slot: @ref real_dft.
 */

/**
 * @defgroup rvngDFTInv_PermToR Real DFT, inverse, from Perm
 * A real signal from its spectrum in as many elements, pairs at even places.
 *
 *     src   R(0) R(N/2) R(1) I(1) ..., without R(N/2) for odd N: N elements
 *     dst   the signal y: N elements
 *
 * The sum that y is, and the layout slot by slot: @ref real_dft.
 */

/** @} */

/* ---- Hartley transform ---------------------------------------------------------------------- */

/**
 * @defgroup rvngHartley Hartley transform
 * Discrete Hartley transform of N real numbers, N from 2 to 64, in natural order.
 *
 *     dst[k] = S * sum over n of src[n] * (cos(2 pi n k / N) + sin(2 pi n k / N)), k = 0 to N - 1.
 *
 * src and dst hold N elements each. The kernels are those of the real DFT with a layer of additions
 * on their outputs or on their inputs. Statuses, aliasing, threads: see @ref conventions.
 */

/* ---- Walsh-Hadamard transform --------------------------------------------------------------- */

/**
 * @defgroup rvngWHT Walsh-Hadamard transform
 * Walsh-Hadamard transform of order k, N = 2^k real numbers, k from 1 to 13, in natural order.
 *
 *     dst[i] = S * sum over j of (-1)^(number of ones in the bits of i AND j) * src[j]
 *
 * with i and j from 0 to N - 1: the Sylvester matrix, Hadamard order. src and dst hold N elements
 * each. Statuses, aliasing, threads: see @ref conventions.
 *
 * The result is, bit for bit (of a NaN only that it is one), that of the loop over h = 1, 2, 4,
 * ..., N/2 that replaces each pair (a[i], a[i + h]) by its sum and its difference, and of one
 * multiplication by S at the end: k N/2 additions, as many subtractions, N multiplications, each
 * rounded to the element type.
 *
 * Work memory: orders 1 to 7 need none and ignore `buffer`. Orders 8 to 13 use the number of bytes
 * that rvngWHTGetBufferSize_32f() or _64f tells, at `buffer`, of any alignment and content, which
 * must overlap neither src nor dst and serves one call at a time; its size is not checked. With a
 * null buffer they take that memory from rvnMalloc() (rvncore.h) for the length of the call. The
 * result of rvnMalloc() is not tested: where memory may run out, pass a buffer.
 * @{
 */

/** Writes to *size the bytes of work memory that an order needs: 0 for orders 1 to 7. Returns
 * RvnStatusSizeError, and writes nothing, for an order outside 1 to 13. The pointer is not tested
 * for null. */
RVNG_API RvnStatus rvngWHTGetBufferSize_32f(int32_t order, int32_t* size);
/** @copydoc rvngWHTGetBufferSize_32f */
RVNG_API RvnStatus rvngWHTGetBufferSize_64f(int32_t order, int32_t* size);
/** @} */

/* ---- The functions of every length ---------------------------------------------------------- */

#include "rvngenmx_functions.h"

/* ---- DCT-IV --------------------------------------------------------------------------------- */

/**
 * @defgroup dct4 DCT-IV
 * Discrete cosine transform of type IV of N real numbers, N a power of two from 2 up.
 *
 *     dst[k] = sum over n of src[n] * cos(pi (2n + 1)(2k + 1) / (4N)), k and n from 0 to N - 1.
 *
 * There is no scale factor and no flag: the transform applied twice gives N/2 times the input. src
 * and dst hold N elements each. They may be equal, or overlap in any way: all reads of src come
 * before the first write to dst.
 *
 *     RvnDCT4Spec_32f* spec;
 *     if (rvngDCT4InitAlloc_32f(&spec, 1024) != RvnStatusNoError)
 *         return 1;
 *     rvngDCT4_32f(x, X, spec);    // as often as needed
 *     rvngDCT4Free_32f(spec);
 *
 * A plan is one block of memory that holds everything the transform needs: objects, tables and
 * intermediate results. It comes from the caller (size query, then initialiser) or from rvnMalloc()
 * (allocating initialiser, which rvngDCT4Free_32f() undoes). The caller's own block may have any
 * alignment and any content; it must stay where it is, since the plan holds addresses, and ends by
 * no longer being used. All trigonometry is done while planning; a transform allocates nothing.
 *
 * Sizes: 2, 4, 8, ... up to 2^27 in 32f and 2^26 in 64f. Other sizes are refused with
 * RvnStatusSizeError, but for two kinds that are left unchecked on purpose and must not be used:
 * the sizes 2^k + 1 from 9 on are planned and run, compute no DCT-IV, leave elements of dst
 * unwritten, read src[N] and write dst[N]; and powers of two above the limits, whose byte counts
 * leave 32 bits: the size query refuses some and tells others a size that is too small (2^30 in
 * 32f, 2^29 and 2^30 in 64f), and the initialiser refuses none of them.
 *
 * Threads: a plan of size 2 to 32 is only read by a transform and may be shared; a plan of size 64
 * or more is written and serves one transform at a time. Different plans have nothing in common.
 *
 * The method: one split with radix r at the top, the outputs in rows of 2r, over r real transforms
 * at odd frequencies, which split further by decimation in time; unrolled bodies of 2 to 64 points
 * below. The arithmetic stays in the element type. The radix is 8, 16 or 32, by the size.
 * @{
 */

/** Opaque: a plan, one type per precision. It is an address inside the block, not the block's. */
typedef struct RvnDCT4Spec_32f RvnDCT4Spec_32f;
/** @copydoc RvnDCT4Spec_32f */
typedef struct RvnDCT4Spec_64f RvnDCT4Spec_64f;

/** Writes to *bytes how large the block of a plan must be. Returns RvnStatusSizeError, and writes
 * nothing, for a size that is not served. The pointer is not tested for null. */
RVNG_API RvnStatus rvngDCT4GetSize_32f(int32_t size, int32_t* bytes);
/** @copydoc rvngDCT4GetSize_32f */
RVNG_API RvnStatus rvngDCT4GetSize_64f(int32_t size, int32_t* bytes);

/** Builds a plan in `block`, of at least the bytes that the size query tells (this is not checked),
 * and writes its handle to *spec. Returns RvnStatusNullPointer for a null pointer, and
 * RvnStatusSizeError for a size that is not served, with *spec untouched. Ask the size query first:
 * a size is only found not to be served while the plan is built, and what was built until then has
 * been written to the block; 24 writes more than the plan of 32 takes. The block may be used for
 * another plan. */
RVNG_API RvnStatus rvngDCT4Init_32f(RvnDCT4Spec_32f** spec, int32_t size, void* block);
/** @copydoc rvngDCT4Init_32f */
RVNG_API RvnStatus rvngDCT4Init_64f(RvnDCT4Spec_64f** spec, int32_t size, void* block);

/** Builds a plan in a block from rvnMalloc() (rvncore.h). Returns RvnStatusNullPointer for a null
 * pointer, before the size is looked at, and also when the memory cannot be had; RvnStatusSizeError
 * for a size that is not served. *spec is untouched, and nothing is held, when it fails. */
RVNG_API RvnStatus rvngDCT4InitAlloc_32f(RvnDCT4Spec_32f** spec, int32_t size);
/** @copydoc rvngDCT4InitAlloc_32f */
RVNG_API RvnStatus rvngDCT4InitAlloc_64f(RvnDCT4Spec_64f** spec, int32_t size);

/** Ends a plan of the allocating initialiser and gives its block to rvnFree(). Never for a plan in
 * the caller's own block. Returns RvnStatusNullPointer for a null spec. */
RVNG_API RvnStatus rvngDCT4Free_32f(RvnDCT4Spec_32f* spec);
/** @copydoc rvngDCT4Free_32f */
RVNG_API RvnStatus rvngDCT4Free_64f(RvnDCT4Spec_64f* spec);

/** Runs the transform of a plan. Returns RvnStatusNullPointer, having read and written nothing,
 * when a pointer is null. The spec must be of the same precision. */
RVNG_API RvnStatus rvngDCT4_32f(const float* src, float* dst, RvnDCT4Spec_32f* spec);
/** @copydoc rvngDCT4_32f */
RVNG_API RvnStatus rvngDCT4_64f(const double* src, double* dst, RvnDCT4Spec_64f* spec);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
