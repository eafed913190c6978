// env3: the input side of the top split. Transform j runs over every 2r-th sample from j on, of the
// signal continued by x[-1 - n] = x[n], and gives column j of the rows of env2.

#include "dct4/panels.h"
#include "dct4/sub_transforms.h"

using namespace rvn::dct4;

Env3* OWNG_DCT4(env3, __init__)(Env3* self, Arena* arena, const Env3& numbers)
{
    return initSubTransforms(self, arena, numbers,
                             {.object = {OWNG_DCT4(env3, __del__), objectSize<Env3>},
                              .planFn = OWNG_DCT4(env3, plan),
                              .arena = arena});
}

RvnStatus OWNG_DCT4(env3, plan)(void* object)
{
    return planSubTransforms(static_cast<Env3*>(object));
}

void OWNG_DCT4(env3, __del__)(void* object)
{
    releaseSubTransforms(static_cast<Env3*>(object));
}

std::int32_t OWNG_DCT4(env3, mem)(const Env3& numbers)
{
    return bytesOfSubTransforms(numbers);
}

RvnStatus OWNG_DCT4(env3, compute)(const Env3* self, Scalar* dst, const Scalar* src)
{
    if (computedInPanels(*self, dst, src))
        return RvnStatusNoError;
    // Sequence j begins at sample j and is mirrored at the far end, 2N - 1.
    return runSubTransforms(*self, {.first = 0, .mirror = self->lastOdd, .step = 1}, dst, src);
}
