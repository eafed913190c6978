// The exported transform.

#include "dct4/engine.h"

RvnStatus RVNG_DCT4(rvngDCT4)(const Element* src, Element* dst, RVNG_DCT4(RvnDCT4Spec) * spec)
{
    if (spec == nullptr || src == nullptr || dst == nullptr)
        return RvnStatusNullPointer;
    return OWNG_DCT4(env1, compute)(reinterpret_cast<const Env1*>(spec), dst, src);
}
