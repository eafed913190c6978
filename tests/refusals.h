// The refusals that all kernels of three arguments share, in their order.
#pragma once

#include "guarded_memory.h"
#include "rvngenmx.h"

#include <gtest/gtest.h>

#include <climits>

namespace rvn::tests
{

// A null src, then a null dst, then a bad flag is refused; memory that must not be touched is not.
template <typename Element, typename Kernel> void expectRefusals(const Kernel& kernel)
{
    static const GuardedMemory page(1);
    auto* const some = page.untouchable<Element>();
    Element* const none = nullptr;
    for (const RvnScaleFlag flag :
         {0, 3, 5, 6, 7, 9, 10, 12, 15, 16, 32, 257, 1 << 30, -1, -2, -8, INT_MIN, INT_MAX}) {
        ASSERT_EQ(kernel.run(some, some, flag), RvnStatusFlagError) << kernel.name << flag;
        ASSERT_EQ(kernel.run(none, some, flag), RvnStatusNullPointer) << kernel.name << flag;
        ASSERT_EQ(kernel.run(some, none, flag), RvnStatusNullPointer) << kernel.name << flag;
    }
    for (const int flag : {RvnScaleFwdByN, RvnScaleInvByN, RvnScaleBySqrtN, RvnScaleNone}) {
        ASSERT_EQ(kernel.run(none, some, flag), RvnStatusNullPointer) << kernel.name << flag;
        ASSERT_EQ(kernel.run(some, none, flag), RvnStatusNullPointer) << kernel.name << flag;
        ASSERT_EQ(kernel.run(none, none, flag), RvnStatusNullPointer) << kernel.name << flag;
    }
}

} // namespace rvn::tests
