// The exported DCT-IV functions by element type, and a plan in a block of the test's own.
#pragma once

#include "kernels.h"

#include "dct4/environments.h"

#include <cstring>
#include <vector>

namespace rvn::tests
{

template <typename Real> struct Dct4;

#define RVN_TEST_DCT4(Real, suffix)                                                                \
    template <> struct Dct4<Real> {                                                                \
        using Spec = RvnDCT4Spec_##suffix;                                                         \
        static constexpr auto getSize = rvngDCT4GetSize_##suffix;                                  \
        static constexpr auto init = rvngDCT4Init_##suffix;                                        \
        static constexpr auto initAlloc = rvngDCT4InitAlloc_##suffix;                              \
        static constexpr auto free = rvngDCT4Free_##suffix;                                        \
        static constexpr auto run = rvngDCT4_##suffix;                                             \
    };

RVN_TEST_DCT4(float, 32f)
RVN_TEST_DCT4(double, 64f)

// Where the arena of a block begins.
inline std::byte* firstOfArena(std::byte* block)
{
    return block + 64 - reinterpret_cast<std::uintptr_t>(block) % 32;
}

inline std::byte* cursorOf(const std::byte* block)
{
    std::byte* cursor = nullptr;
    std::memcpy(&cursor, block, sizeof(cursor));
    return cursor;
}

// A plan in a block that held NaNs before.
template <typename Real> class Dct4Plan
{
public:
    explicit Dct4Plan(int size)
    {
        int bytes = 0;
        EXPECT_EQ(Dct4<Real>::getSize(size, &bytes), RvnStatusNoError) << size;
        block_.assign(bytes, std::byte{0xff});
        EXPECT_EQ(Dct4<Real>::init(&spec_, size, block_.data()), RvnStatusNoError) << size;
    }

    std::byte* block() { return block_.data(); }
    std::size_t bytes() const { return block_.size(); }
    auto* spec() const { return spec_; }
    // All of the plan, as bytes.
    const std::vector<std::byte>& content() const { return block_; }
    const auto& env1() const { return *reinterpret_cast<dct4::record::Env1<Real>*>(spec_); }

    void run(const Real* src, Real* dst) const
    {
        EXPECT_EQ(Dct4<Real>::run(src, dst, spec_), RvnStatusNoError) << env1().size;
    }

    std::vector<Real> transformed(const std::vector<Real>& x) const
    {
        std::vector<Real> X(x.size(), std::numeric_limits<Real>::quiet_NaN());
        run(x.data(), X.data());
        return X;
    }

private:
    std::vector<std::byte> block_;
    typename Dct4<Real>::Spec* spec_ = nullptr;
};

} // namespace rvn::tests
