// env7: the input side of an inner split. Sub-transform v runs over every r'-th element from v on
// of its parent's sequence, and gives column v of the rows of env6.

#include "dct4/sub_transforms.h"

using namespace rvn::dct4;

Env7* OWNG_DCT4(env7, __init__)(Env7* self, Arena* arena, const Env7& numbers)
{
    return initSubTransforms(self, arena, numbers,
                             {.object = {OWNG_DCT4(env7, __del__), objectSize<Env7>},
                              .planFn = OWNG_DCT4(env7, plan),
                              .arena = arena});
}

RvnStatus OWNG_DCT4(env7, plan)(void* object)
{
    return planSubTransforms(static_cast<Env7*>(object));
}

void OWNG_DCT4(env7, __del__)(void* object)
{
    releaseSubTransforms(static_cast<Env7*>(object));
}

std::int32_t OWNG_DCT4(env7, mem)(const Env7& numbers)
{
    return bytesOfSubTransforms(numbers);
}

RvnStatus OWNG_DCT4(env7, compute)(const Env7* self, Scalar* dst, const Scalar* src, std::int32_t j,
                                   std::int32_t mirror)
{
    return runSubTransforms(*self, {.first = j, .mirror = mirror, .step = self->parentStride}, dst,
                            src);
}
