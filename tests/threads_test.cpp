// Calls in many threads at once give what they give alone: kernels and dispatchers have no state,
// plans of up to 32 points are only read, and a larger one belongs to the thread that made it. The
// thread sanitizer sees every access that two threads have in common.

#include "calls.h"

#include <latch>
#include <thread>

namespace rvn::tests
{

namespace
{

template <typename Real> class Threads : public ::testing::Test
{
};

TYPED_TEST_SUITE(Threads, Reals);

TYPED_TEST(Threads, SixtyFourAtOnceGiveWhatOneGives)
{
    constexpr int count = 64;
    const auto calls = everyCall<TypeParam>();
    std::vector<std::vector<TypeParam>> expected;
    for (const auto& call : calls)
        expected.push_back(call.run(call.input(1)));

    std::latch start(count);
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < count; ++thread)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (std::size_t i = 0; i < calls.size(); ++i)
                EXPECT_TRUE(haveSameBits(calls[i].run(calls[i].input(1)), expected[i]))
                    << calls[i].name;
        });
}

} // namespace

} // namespace rvn::tests
