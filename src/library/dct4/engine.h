// The functions of the objects of a plan, for one precision; and what they share.
//
// __init__ fills an object in raw memory of the arena with the numbers of a record of its type, and
// allocates its lists. plan builds what lies below it, and returns RvnStatusSizeError, leaving
// everything in place, for a length that cannot be split. __del__ releases what the object owns,
// but not the object. mem tells the bytes of an object of these numbers and of its plan in advance,
// or a negative number; only the length counts. compute runs the step; its order of arguments is
// destination, source.
#pragma once

#include "dct4/environments.h"
#include "dct4/names.h"

extern "C" {

using rvn::dct4::Element;
using rvn::dct4::Scalar;
using Env1 = rvn::dct4::record::Env1<Element>;
using Env2 = rvn::dct4::record::Env2<Element>;
using Env3 = rvn::dct4::record::Env3<Element>;
using Env4 = rvn::dct4::record::Env4<Element>;
using Env6 = rvn::dct4::record::Env6<Element>;
using Env7 = rvn::dct4::record::Env7<Element>;
using EnvLambda = rvn::dct4::record::EnvLambda<Element>;
using EnvFCompose = rvn::dct4::record::EnvFCompose<Element>;

// clang-format off
EnvLambda*   OWNG_DCT4(envlambda, __init__)(EnvLambda* self, Arena* arena, const EnvLambda& numbers);
void         OWNG_DCT4(envlambda, __del__)(void* self);
Element      OWNG_DCT4(envlambda, at)(const void* self, std::int32_t i, std::int32_t j);

EnvFCompose* OWNG_DCT4(envfCompose, __init__)(EnvFCompose* self, Arena* arena, const EnvFCompose& numbers);
void         OWNG_DCT4(envfCompose, __del__)(void* self);
Element      OWNG_DCT4(envfCompose, at)(const void* self, std::int32_t i, std::int32_t j);

Env1*        OWNG_DCT4(env1, __init__)(Env1* self, Arena* arena, std::int32_t size);
RvnStatus    OWNG_DCT4(env1, plan)(void* self);
void         OWNG_DCT4(env1, __del__)(void* self);
std::int32_t OWNG_DCT4(env1, mem)(std::int32_t size);
RvnStatus    OWNG_DCT4(env1, compute)(const Env1* self, Scalar* dst, const Scalar* src);

Env2*        OWNG_DCT4(env2, __init__)(Env2* self, Arena* arena, const Env2& numbers);
RvnStatus    OWNG_DCT4(env2, plan)(void* self);
void         OWNG_DCT4(env2, __del__)(void* self);
RvnStatus    OWNG_DCT4(env2, compute)(const Env2* self, Scalar* dst, const Scalar* src);

Env3*        OWNG_DCT4(env3, __init__)(Env3* self, Arena* arena, const Env3& numbers);
RvnStatus    OWNG_DCT4(env3, plan)(void* self);
void         OWNG_DCT4(env3, __del__)(void* self);
std::int32_t OWNG_DCT4(env3, mem)(const Env3& numbers);
RvnStatus    OWNG_DCT4(env3, compute)(const Env3* self, Scalar* dst, const Scalar* src);

Env4*        OWNG_DCT4(env4, __init__)(Env4* self, Arena* arena, const Env4& numbers);
RvnStatus    OWNG_DCT4(env4, plan)(void* self);
void         OWNG_DCT4(env4, __del__)(void* self);
std::int32_t OWNG_DCT4(env4, mem)(const Env4& numbers);

Env6*        OWNG_DCT4(env6, __init__)(Env6* self, Arena* arena, const Env6& numbers);
RvnStatus    OWNG_DCT4(env6, plan)(void* self);
void         OWNG_DCT4(env6, __del__)(void* self);
RvnStatus    OWNG_DCT4(env6, compute)(const Env6* self, Scalar* dst, const Scalar* src, std::int32_t j);
RvnStatus    OWNG_DCT4(env6, rows)(const Env6* self, Scalar* dst, const Scalar* src, std::ptrdiff_t outputStep);

Env7*        OWNG_DCT4(env7, __init__)(Env7* self, Arena* arena, const Env7& numbers);
RvnStatus    OWNG_DCT4(env7, plan)(void* self);
void         OWNG_DCT4(env7, __del__)(void* self);
std::int32_t OWNG_DCT4(env7, mem)(const Env7& numbers);
RvnStatus    OWNG_DCT4(env7, compute)(const Env7* self, Scalar* dst, const Scalar* src, std::int32_t j, std::int32_t mirror);
// clang-format on
}

namespace rvn::dct4
{

inline namespace DCT4_NAMESPACE
{

// The byte count in an object's header.
template <typename Object>
constexpr std::int32_t objectSize = static_cast<std::int32_t>(sizeof(Object));

// k for a value of 2^k, first <= k <= last; the fixed bodies are numbered so.
constexpr std::int32_t modeOf(std::int32_t value, int first, int last, std::int32_t otherwise)
{
    for (int k = first; k <= last; ++k)
        if (value == 1 << k)
            return k;
    return otherwise;
}

// Integers of a plan are 32 bits wide; the numbers of sizes that are not served wrap around.
constexpr std::int32_t narrowed(std::int64_t value)
{
    return static_cast<std::int32_t>(value);
}

constexpr std::uint64_t bytesOf(std::int64_t elements)
{
    return static_cast<std::uint64_t>(elements) * sizeof(Element);
}

// Raw memory, which __init__ fills.
template <typename Object> Object* allocate(Arena* arena)
{
    return static_cast<Object*>(rvngArenaMalloc(arena, sizeof(Object)));
}

inline Element* allocateElements(Arena* arena, std::int64_t count)
{
    return static_cast<Element*>(rvngArenaMalloc(arena, bytesOf(count)));
}

inline EnvList* newList(Arena* arena)
{
    return EnvList___init__(allocate<EnvList>(arena), arena);
}

inline void releaseList(EnvList* list)
{
    EnvList___del__(list);
    rvngArenaFree(list->arena, list, sizeof(EnvList));
}

inline void releaseChildren(EnvList* children)
{
    EnvList_freeChildren(children);
    releaseList(children);
}

// The first item of a list.
template <typename Object> Object* itemOf(const EnvList* list)
{
    return static_cast<Object*>(EnvList_get(list, 0));
}

// Adds an object to its parent's children and to the list that it is reached through, and plans
// what it finds there.
inline RvnStatus addPlanned(void* object, EnvList* children, EnvList* list,
                            RvnStatus (*plan)(void* self))
{
    EnvList_add(list, EnvList_add(children, object));
    return plan(EnvList_get(list, 0));
}

// The bytes of a split of so many points: its outputs' object with a table of so many elements, its
// inputs, the object itself with its scratch array, and its generator. Five list nodes are counted
// where two are taken: callers may have these figures in their own tables.
template <typename Split, typename Outputs, typename Generator>
std::int32_t bytesOfSplit(std::int32_t size, std::int64_t tableLength, std::int32_t inputs)
{
    const auto A = rvngAlignSize32Bytes;
    const auto L = EnvList_add_mem;
    const std::uint64_t outputs = A(bytesOf(tableLength)) + A(sizeof(Outputs)) + A(sizeof(EnvList));
    if (const std::int32_t bytes = narrowed(static_cast<std::int64_t>(outputs)); bytes < 0)
        return bytes;
    if (inputs < 0)
        return inputs;
    return narrowed(static_cast<std::int64_t>(
        outputs + static_cast<std::uint64_t>(inputs) + A(bytesOf(size)) + A(sizeof(Split)) +
        3 * A(sizeof(EnvList)) + L(2) + A(sizeof(Generator)) + L(1) + L(2)));
}

} // namespace DCT4_NAMESPACE

} // namespace rvn::dct4
