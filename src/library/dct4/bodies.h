// What a fixed body takes, a generated function with its loop: records in elements, not bytes.
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

// The bodies of a mode: of env1, of env3 and env7, of env2, of env6. Null where it has none.
template <typename Element> struct FixedBodies {
    using Scalar __attribute__((may_alias, aligned(1))) = Element;
    void (*direct)(Scalar* dst, const Scalar* src);
    void (*odd)(Scalar* dst, const Scalar* src, const Sequences& sequences);
    void (*topRow)(Scalar* dst, const Scalar* src, const Scalar* twiddles, const TopRows& rows);
    void (*innerRow)(Scalar* dst, const Scalar* src, const Scalar* first, const Scalar* second,
                     const InnerRows& rows);
};

} // namespace rvn::dct4
