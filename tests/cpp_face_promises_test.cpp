// What the C++ header promises in figures, each against the C header or its documentation; and that
// no number of elements is cut short on its way to a C function.

#include "rvngenmx.hpp"

#include "guarded_memory.h"

#include <gtest/gtest.h>

namespace rvn::tests
{

namespace
{

using rvng::Scale;
using rvng::Status;

static_assert(RvnScaleFlag(Scale::ForwardByN) == RvnScaleFwdByN);
static_assert(RvnScaleFlag(Scale::InverseByN) == RvnScaleInvByN);
static_assert(RvnScaleFlag(Scale::BySqrtN) == RvnScaleBySqrtN);
static_assert(RvnScaleFlag(Scale::None) == RvnScaleNone);
static_assert(RvnStatus(Status::NoError) == 0 && RvnStatus(Status::BadMode) == -5);
static_assert(RvnStatus(Status::SizeError) == -6 && RvnStatus(Status::NullPointer) == -8);
static_assert(RvnStatus(Status::FlagError) == -16);
static_assert(rvng::Dct4<float>::largestSize == 1 << 27);
static_assert(rvng::Dct4<double>::largestSize == 1 << 26);

TEST(CppFacePromises, ASpanOfMoreThan32BitsIsRefusedWhateverItsLowerBits)
{
    const GuardedMemory page(1);
    const std::size_t size = (std::size_t{1} << 32) + 8;
    const std::span signal(page.untouchable<float>(), size);
    const std::span spectrum(page.untouchable<std::complex<double>>(), size);
    EXPECT_EQ(rvng::hartley(signal, signal, Scale::None), Status::SizeError);
    EXPECT_EQ(rvng::dftForward<rvng::Pack>(signal, signal, Scale::None), Status::SizeError);
    EXPECT_EQ(rvng::dftInverse(spectrum, spectrum, Scale::None), Status::SizeError);
}

} // namespace

} // namespace rvn::tests
