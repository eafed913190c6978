// The fixed bodies of both precisions, each in its loop: one generated function a body. What the
// loop runs over is told by a plain record, in elements, not bytes.
//
// src and dst may overlap for the direct bodies alone, which read all before they write.
#pragma once

#include "frame/scalar.h"

#include <cstddef>
#include <cstdint>

namespace rvn::dct4
{

// Sequences of odd-frequency transforms. u[t] lies at near + stride t for t >= 0 and at
// far + stride (-1 - t) for t < 0; from a sequence to the next, near rises and far falls by `step`,
// and the outputs move by 1. Re Y(q) goes to rowStep 2q, Im Y(q) to rowStep (2q + 1).
struct Sequences {
    std::ptrdiff_t near;
    std::ptrdiff_t far;
    std::ptrdiff_t step;
    std::ptrdiff_t stride;
    std::ptrdiff_t rowStep;
    std::int32_t count;
};

// Rows of the top split. W[s] goes to near + stride s for s >= 0 and to far + stride (-1 - s) for
// s < 0; from a row to the next, near rises and far falls by 1.
struct TopRows {
    std::ptrdiff_t far;
    std::ptrdiff_t stride;
    std::int32_t count;
};

// Rows of an inner split. The parts of D[s] go to stride s and stride s + rowStep, s < r/2, those
// of conj D[r - 1 - s] to the same places behind far; from a row to the next, the former rise and
// the latter fall by 2 rowStep.
struct InnerRows {
    std::ptrdiff_t far;
    std::ptrdiff_t stride;
    std::ptrdiff_t rowStep;
    std::int32_t count;
};

} // namespace rvn::dct4

// A body of each kind in one precision.
#define RVNG_DCT4_DIRECT(N, suffix, Scalar)                                                        \
    void owngDCT4_##suffix##_direct_##N(Scalar* dst, const Scalar* src);
#define RVNG_DCT4_ODD(L, suffix, Scalar)                                                           \
    void owngDCT4_##suffix##_odd_##L(Scalar* dst, const Scalar* src,                               \
                                     const rvn::dct4::Sequences& sequences);
#define RVNG_DCT4_TOP_ROW(r, suffix, Scalar)                                                       \
    void owngDCT4_##suffix##_topRow_##r(Scalar* dst, const Scalar* src, const Scalar* twiddles,    \
                                        const rvn::dct4::TopRows& rows);
#define RVNG_DCT4_INNER_ROW(r, suffix, Scalar)                                                     \
    void owngDCT4_##suffix##_innerRow_##r(Scalar* dst, const Scalar* src, const Scalar* first,     \
                                          const Scalar* second, const rvn::dct4::InnerRows& rows);

// All of one precision: RVNG_DCT4_BODIES(32f, rvn::Scalar32f).
// clang-format off
#define RVNG_DCT4_BODIES(suffix, Scalar)                                                           \
    RVNG_DCT4_DIRECT(2, suffix, Scalar) RVNG_DCT4_DIRECT(4, suffix, Scalar)                        \
    RVNG_DCT4_DIRECT(8, suffix, Scalar) RVNG_DCT4_DIRECT(16, suffix, Scalar)                       \
    RVNG_DCT4_DIRECT(32, suffix, Scalar)                                                           \
    RVNG_DCT4_ODD(2, suffix, Scalar) RVNG_DCT4_ODD(4, suffix, Scalar)                              \
    RVNG_DCT4_ODD(8, suffix, Scalar) RVNG_DCT4_ODD(16, suffix, Scalar)                             \
    RVNG_DCT4_ODD(32, suffix, Scalar) RVNG_DCT4_ODD(64, suffix, Scalar)                            \
    RVNG_DCT4_TOP_ROW(1, suffix, Scalar) RVNG_DCT4_TOP_ROW(2, suffix, Scalar)                      \
    RVNG_DCT4_TOP_ROW(4, suffix, Scalar) RVNG_DCT4_TOP_ROW(8, suffix, Scalar)                      \
    RVNG_DCT4_TOP_ROW(16, suffix, Scalar) RVNG_DCT4_TOP_ROW(32, suffix, Scalar)                    \
    RVNG_DCT4_INNER_ROW(2, suffix, Scalar) RVNG_DCT4_INNER_ROW(4, suffix, Scalar)                  \
    RVNG_DCT4_INNER_ROW(8, suffix, Scalar) RVNG_DCT4_INNER_ROW(16, suffix, Scalar)                 \
    RVNG_DCT4_INNER_ROW(32, suffix, Scalar)
// clang-format on

extern "C" {
RVNG_DCT4_BODIES(32f, rvn::Scalar32f)
RVNG_DCT4_BODIES(64f, rvn::Scalar64f)
}
