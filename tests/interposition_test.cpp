// A program that defines an exported kernel itself replaces it: the dispatchers call kernels by
// their exported names. This program defines two and watches which calls reach them.

#include "rvngenmx.h"

#include <gtest/gtest.h>

RvnStatus rvngDFTFwd_CToC_15_64fc(const Rvn64fc*, Rvn64fc*, RvnScaleFlag)
{
    return 4711;
}

RvnStatus rvngDFTInv_CToC_64_32fc(const Rvn32fc*, Rvn32fc*, RvnScaleFlag)
{
    return 4712;
}

TEST(Interposition, ADispatcherCallsTheKernelThatTheProgramDefines)
{
    EXPECT_EQ(rvngDFTFwd_CToC_64fc(nullptr, nullptr, 15, RvnScaleNone), 4711);
    EXPECT_EQ(rvngDFTInv_CToC_32fc(nullptr, nullptr, 64, RvnScaleNone), 4712);
    EXPECT_EQ(rvngDFTFwd_CToC_64fc(nullptr, nullptr, 14, RvnScaleNone), RvnStatusNullPointer);
    EXPECT_EQ(rvngDFTInv_CToC_64fc(nullptr, nullptr, 15, RvnScaleNone), RvnStatusNullPointer);
}
