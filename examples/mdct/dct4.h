// dct4.h - a plan of the library's DCT-IV, which ends with its owner.
#ifndef MDCT_DCT4_H
#define MDCT_DCT4_H

#include "status.h"

#include <memory>
#include <new>
#include <rvngenmx.h>

namespace mdct
{

class Dct4
{
public:
    explicit Dct4(int size)
    {
        RvnDCT4Spec_32f* plan = nullptr;
        const RvnStatus status = rvngDCT4InitAlloc_32f(&plan, size);
        if (status == RvnStatusNullPointer) // of the memory: ours is none
            throw std::bad_alloc();
        examples::check(status);
        plan_.reset(plan);
    }

    // Transforms src to dst, which may be the same.
    void operator()(const float* src, float* dst)
    {
        examples::check(rvngDCT4_32f(src, dst, plan_.get()));
    }

private:
    struct End {
        void operator()(RvnDCT4Spec_32f* plan) const { rvngDCT4Free_32f(plan); }
    };
    std::unique_ptr<RvnDCT4Spec_32f, End> plan_;
};

} // namespace mdct

#endif
