// The work memory that an order needs: a constant of the plan table.

#include "rvngenmx.h"
#include "wht/passes.h"

namespace
{

template <typename Element> RvnStatus bufferSize(int32_t order, int32_t* size)
{
    using namespace rvn::wht;
    if (order < lowestOrder || order > highestOrder)
        return RvnStatusSizeError;
    *size = order <= highestStraightLineOrder
                ? 0
                : bufferedPlan(order).workElements() * static_cast<int32_t>(sizeof(Element));
    return RvnStatusNoError;
}

} // namespace

RvnStatus rvngWHTGetBufferSize_32f(int32_t order, int32_t* size)
{
    return bufferSize<float>(order, size);
}

RvnStatus rvngWHTGetBufferSize_64f(int32_t order, int32_t* size)
{
    return bufferSize<double>(order, size);
}
