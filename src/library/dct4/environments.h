// The objects of a plan: plain records with a common header, an integer for each number that their
// step needs, and lists of what lies below them. One tree of them, in one block, is a plan:
//
//   env1                 the whole transform; a fixed body up to 32 points, else the top split
//   +-- envfCompose      gives the twiddles of the top split
//   +-- env2             its output rows
//   +-- env3             its input side: r odd-frequency transforms, by a fixed body, or else by
//       +-- env4         an inner split, which has a scratch array and
//           +-- envlambda    gives the twiddles of the inner split
//           +-- env6         its output rows
//           +-- env7         its input side: shorter odd-frequency transforms, like env3
//
// The fields marked "plan" are read while planning only; a transform goes by the others. What has a
// default is an object's own; the other fields are the numbers that it is made with. Sizes and
// offsets are part of the design: what a size query answers is made of them.
#pragma once

#include "dct4/env_list.h"
#include "rvngenmx.h"

namespace rvn::dct4::record
{

template <typename Element> struct EnvHeader {
    EnvObject object; // the object's __del__ and its byte count
    union {
        RvnStatus (*planFn)(void* self);                                   // env1 to env7
        Element (*atFn)(const void* self, std::int32_t i, std::int32_t j); // the generators
    };
    Arena* arena;
};

// Twiddles of the inner split: the angle factor of row i is (i + 1/2) / (numerator / denominator).
template <typename Element> struct EnvLambda {
    EnvHeader<Element> header = {};
    std::int32_t numerator;   // M
    std::int32_t denominator; // its radix
};

// Twiddles of the top split.
template <typename Element> struct EnvFCompose {
    EnvHeader<Element> header = {};
    std::int32_t rowStepCopy;
    std::int32_t angleDivisor; // 8 N
    std::int32_t rows;
    std::int32_t radix;
    std::int32_t rowStep;
};

template <typename Element> struct Env1 {
    EnvHeader<Element> header;
    EnvList* children; // owns envfCompose, env2, env3
    EnvList* env2List;
    EnvList* env3List;
    Element* scratch; // N elements between env3 and env2; null up to N = 32
    std::int32_t mode;
    std::int32_t radix;
    std::int32_t size; // N
};

template <typename Element> struct Env2 {
    EnvHeader<Element> header = {};
    EnvList* children = nullptr; // empty
    Element* twiddles = nullptr;
    std::int32_t mode = 0;
    std::int32_t radix;              // plan
    std::int32_t size;               // plan
    std::int32_t rowStep;            // 2 r
    std::int32_t rows;               // m = N/(2 r)
    std::int32_t sizeCopy;           // plan
    std::int32_t lastOdd;            // 2 N - 1
    std::int32_t subSize;            // M = N/r
    EnvFCompose<Element>* generator; // plan
};

template <typename Element> struct Env3 {
    EnvHeader<Element> header = {};
    EnvList* children = nullptr; // owns the env4, if there is one
    EnvList* env4List = nullptr;
    Element* table = nullptr; // always null
    std::int32_t mode = 0;
    std::int32_t subSize;     // M; plan
    std::int32_t topSize;     // plan
    std::int32_t lastOdd;     // 2 N - 1
    std::int32_t stride;      // 2 r, of the elements of a sequence
    std::int32_t count;       // r, of the sequences
    std::int32_t parentSize;  // plan
    std::int32_t parentRadix; // r, the row step of its outputs
};

template <typename Element> struct Env4 {
    EnvHeader<Element> header = {};
    EnvList* children = nullptr; // owns envlambda, env6, env7
    EnvList* env6List = nullptr;
    EnvList* env7List = nullptr;
    Element* scratch = nullptr; // M elements between env7 and env6
    std::int32_t mode = 0;      // 1 once planned; of any other mode neither runs
    std::int32_t size;          // M
    std::int32_t radix = 0;     // r'; set by plan
    std::int32_t topSize;       // plan
    std::int32_t topSizeAgain;  // plan
    std::int32_t stride;        // plan
    std::int32_t parentSize;    // plan
    std::int32_t parentRadix;   // plan
};

template <typename Element> struct Env6 {
    EnvHeader<Element> header = {};
    EnvList* children = nullptr; // empty
    Element* twiddles = nullptr;
    std::int32_t mode = 0;
    std::int32_t radix;            // r'; plan
    std::int32_t size;             // plan
    std::int32_t rowStep;          // 2 r'
    std::int32_t rows;             // m' = M/(2 r')
    std::int32_t parentSize;       // plan
    std::int32_t halfSize;         // plan
    std::int32_t lastOdd;          // M - 1
    std::int32_t parentRadix;      // the row step of the level above
    std::int32_t subSize;          // M/r'
    EnvLambda<Element>* generator; // plan
};

template <typename Element> struct Env7 {
    EnvHeader<Element> header = {};
    EnvList* children = nullptr; // owns the env4, if there is one
    EnvList* env4List = nullptr;
    Element* table = nullptr; // always null
    std::int32_t mode = 0;
    std::int32_t subSize;      // plan
    std::int32_t topSize;      // plan
    std::int32_t topSizeAgain; // plan
    std::int32_t stride;       // of the elements of a sub-sequence
    std::int32_t parentStride; // from one sub-sequence to the next
    std::int32_t count;        // r', of the sub-sequences
    std::int32_t parentSize;   // plan
    std::int32_t parentRadix;  // r', the row step of its outputs
};

// clang-format off
template <typename Element> constexpr bool hasDesignedLayout()
{
    static_assert(sizeof(EnvHeader<Element>)   == 32 && offsetof(EnvHeader<Element>, arena) == 24);
    static_assert(offsetof(EnvObject, objectSize) == 8 && offsetof(EnvHeader<Element>, atFn) == 16);
    static_assert(sizeof(EnvLambda<Element>)   == 40 && offsetof(EnvLambda<Element>, denominator) == 36);
    static_assert(sizeof(EnvFCompose<Element>) == 56 && offsetof(EnvFCompose<Element>, rowStep) == 48);
    static_assert(sizeof(Env1<Element>) == 80 && offsetof(Env1<Element>, mode) == 64 && offsetof(Env1<Element>, size) == 72);
    static_assert(sizeof(Env2<Element>) == 88 && offsetof(Env2<Element>, mode) == 48 && offsetof(Env2<Element>, generator) == 80);
    static_assert(sizeof(Env3<Element>) == 88 && offsetof(Env3<Element>, mode) == 56 && offsetof(Env3<Element>, parentRadix) == 84);
    static_assert(sizeof(Env4<Element>) == 96 && offsetof(Env4<Element>, mode) == 64 && offsetof(Env4<Element>, parentRadix) == 92);
    static_assert(sizeof(Env6<Element>) == 96 && offsetof(Env6<Element>, mode) == 48 && offsetof(Env6<Element>, generator) == 88);
    static_assert(sizeof(Env7<Element>) == 96 && offsetof(Env7<Element>, mode) == 56 && offsetof(Env7<Element>, parentRadix) == 88);
    return true;
}
// clang-format on
static_assert(hasDesignedLayout<float>() && hasDesignedLayout<double>());

} // namespace rvn::dct4::record
