// The C++ header: every function gives, bit for bit, what the C function gives; what does not fit
// is refused, with nothing written. (consumers/face_refused.cpp has what does not compile.)

#include "rvngenmx.hpp"

#include "kernels.h"

#include <array>
#include <tuple>
#include <type_traits>

namespace rvn::tests
{

namespace
{

using enum Transform;
using rvng::Ccs, rvng::Pack, rvng::Perm, rvng::Scale, rvng::Status;

template <typename T> struct CppFace : testing::Test {
};
TYPED_TEST_SUITE(CppFace, Reals);

// Becomes a span of the extent that a function takes, known or not.
template <typename T> struct Elastic {
    std::span<T> all;
    template <std::size_t N> operator std::span<T, N>() const { return std::span<T, N>(all); }
};

template <typename T> using Call = Status (*)(Elastic<const T>, Elastic<T>, Scale);
template <typename T> using Calls = std::initializer_list<Call<T>>;

// A function of the header, be its length in its type or not.
#define CALL(...) [](auto x, auto X, Scale s) { return rvng::__VA_ARGS__(x, X, s); }

template <typename T, typename Real> void expectKernel(const Kernel<Real>& kernel, Calls<T> calls)
{
    constexpr std::size_t step = sizeof(T) / sizeof(Real);
    const auto x = randomParts<Real>(slotCount(kernel.source(), kernel.parts()), kernel.size);
    for (const Scale scale : {Scale::ForwardByN, Scale::InverseByN, Scale::BySqrtN, Scale::None}) {
        const auto X = resultOf(kernel, x.data(), static_cast<RvnScaleFlag>(scale));
        for (const Call<T>& call : calls) {
            std::vector<Real> out(X.size(), nan<Real>);
            const std::span in(reinterpret_cast<const T*>(x.data()), x.size() / step);
            const std::span to(reinterpret_cast<T*>(out.data()), out.size() / step);
            EXPECT_EQ(call({in}, {to}, scale), Status::NoError);
            EXPECT_TRUE(haveSameBits(out, X)) << kernel.name << ", call " << &call - calls.begin();
        }
    }
}

template <typename T>
void expectRefusal(std::initializer_list<std::pair<std::size_t, std::size_t>> sizes, Calls<T> calls)
{
    for (const auto& [in, out] : sizes) {
        const std::vector<T> x(in);
        std::vector<T> X(out, T{7});
        for (const Call<T> call : calls)
            EXPECT_EQ(call({x}, {X}, Scale::None), Status::SizeError) << in << " " << out;
        EXPECT_EQ(X, std::vector<T>(out, T{7}));
    }
}

// check() for lengths or orders from the first on, as constants.
template <std::size_t first, std::size_t... i> void forEach(std::index_sequence<i...>, auto check)
{
    (check(std::integral_constant<std::size_t, first + i>{}), ...);
}

TYPED_TEST(CppFace, ComplexTransformsAreTheKernels)
{
    using T = TypeParam;
    using C = std::complex<T>;
    forEach<2>(std::make_index_sequence<63>{}, [](auto length) {
        constexpr std::size_t N = length;
        expectKernel<C>(kernelOf<T>(Forward, N), {CALL(dftForward<N>), CALL(dftForward)});
        expectKernel<C>(kernelOf<T>(Inverse, N), {CALL(dftInverse<N>), CALL(dftInverse)});
    });
    expectRefusal<C>({{0, 0}, {1, 1}, {65, 65}, {8, 7}, {7, 8}, {64, 65}},
                     {CALL(dftForward), CALL(dftInverse)});
}

template <typename L, typename T>
void expectRealTransforms(Transform toLayout, Transform fromLayout)
{
    const Call<T> forward = CALL(dftForward<L>), inverse = CALL(dftInverse<L>);
    forEach<2>(std::make_index_sequence<63>{}, [=](auto length) {
        constexpr std::size_t N = length, M = L::size(N);
        expectKernel<T>(kernelOf<T>(toLayout, N), {CALL(dftForward<L, N>), forward});
        expectKernel<T>(kernelOf<T>(fromLayout, N), {CALL(dftInverse<L, N>), inverse});
        expectRefusal<T>({{N, M - 1}, {N, M + 1}}, {forward});
        expectRefusal<T>({{M - 1, N}, {M + 1, N}}, {inverse});
    });
    expectRefusal<T>({{0, L::size(0)}, {1, L::size(1)}, {65, L::size(65)}}, {forward});
    expectRefusal<T>({{L::size(0), 0}, {L::size(1), 1}, {L::size(65), 65}}, {inverse});
}

TYPED_TEST(CppFace, RealTransformsAreTheKernels)
{
    expectRealTransforms<Ccs, TypeParam>(ToCCS, FromCCS);
    expectRealTransforms<Pack, TypeParam>(ToPack, FromPack);
    expectRealTransforms<Perm, TypeParam>(ToPerm, FromPerm);
}

TYPED_TEST(CppFace, HartleyTransformsAreTheKernels)
{
    using T = TypeParam;
    forEach<2>(std::make_index_sequence<63>{}, [](auto length) {
        constexpr std::size_t N = length;
        expectKernel<T>(kernelOf<T>(Hartley, N), {CALL(hartley<N>), CALL(hartley)});
    });
    expectRefusal<T>({{0, 0}, {1, 1}, {65, 65}, {8, 7}, {7, 8}, {64, 65}}, {CALL(hartley)});
    std::array<T, 8> x = {};
    EXPECT_EQ(rvng::hartley<8>(x, x, static_cast<Scale>(3)), Status::FlagError);
    EXPECT_EQ(rvng::hartley(x, x, static_cast<Scale>(3)), Status::FlagError);
    const std::span<T, 8> null(static_cast<T*>(nullptr), 8);
    EXPECT_EQ(rvng::hartley<8>(x, null, Scale::None), Status::NullPointer);
}

// The work memory of the calls below, of the size that the caller wants.
std::vector<std::byte> buffer;

TYPED_TEST(CppFace, WalshHadamardTransformsAreTheKernels)
{
    using T = TypeParam;
    const Call<T> buffered = [](auto x, auto X, Scale s) { return rvng::wht(x, X, s, buffer); };
    forEach<1>(std::make_index_sequence<13>{}, [=](auto constant) {
        constexpr std::size_t order = constant, N = std::size_t{1} << order;
        const auto& kernel = kernelOf<T>(WalshHadamard, order);
        std::size_t bytes = 1;
        EXPECT_EQ(rvng::whtBufferSize<T>(order, bytes), Status::NoError);
        EXPECT_EQ(bytes, kernel.workElements() * sizeof(T));
        buffer.assign(bytes, std::byte{0xff});
        const Call<T> inType = [](auto x, auto X, Scale s) {
            return rvng::wht<order>(x, X, s, buffer);
        };
        expectKernel<T>(kernel, {CALL(wht<order>), CALL(wht), inType, buffered});
        if (bytes == 0)
            return;
        buffer.pop_back();
        expectRefusal<T>({{N, N}}, {inType, buffered});
    });
    expectRefusal<T>({{0, 0}, {1, 1}, {3, 3}, {48, 48}, {1 << 14, 1 << 14}, {8, 4}, {4, 8}},
                     {CALL(wht), buffered});
    std::size_t bytes = 5;
    for (const std::size_t order : {std::size_t{0}, std::size_t{14}, (std::size_t{1} << 32) + 1})
        EXPECT_EQ(rvng::whtBufferSize<T>(order, bytes), Status::SizeError);
    EXPECT_EQ(bytes, 5u);
}

template <typename T>
constexpr std::tuple inC(&rvngDCT4InitAlloc_64f, &rvngDCT4_64f, &rvngDCT4Free_64f);
template <>
constexpr std::tuple inC<float>(&rvngDCT4InitAlloc_32f, &rvngDCT4_32f, &rvngDCT4Free_32f);

TYPED_TEST(CppFace, Dct4PlansAreThoseOfTheLibrary)
{
    using T = TypeParam;
    using Plan = rvng::Dct4<T>;
    const auto [init, transform, free] = inC<T>;
    std::conditional_t<sizeof(T) == 4, RvnDCT4Spec_32f, RvnDCT4Spec_64f>* spec = nullptr;
    for (std::size_t N = 2; N <= 4096; N *= 2) {
        const auto x = randomParts<T>(static_cast<int>(N), static_cast<unsigned>(N));
        std::vector<T> out, X(N);
        EXPECT_EQ(init(&spec, static_cast<int>(N)), RvnStatusNoError);
        EXPECT_EQ(transform(x.data(), X.data(), spec), RvnStatusNoError);
        EXPECT_EQ(free(spec), RvnStatusNoError);
        const auto expectResult = [&](auto&& plan) {
            out.assign(N, nan<T>);
            EXPECT_TRUE(plan) << N;
            EXPECT_EQ(plan.size(), N);
            EXPECT_EQ(plan.run(x, out), Status::NoError) << N;
            EXPECT_TRUE(haveSameBits(out, X)) << N;
            EXPECT_EQ(plan.run(x, std::span(out).first(N - 1)), Status::SizeError);
            EXPECT_EQ(plan.run(std::span(x).first(N - 1), out), Status::SizeError);
        };
        std::size_t bytes = 0;
        ASSERT_EQ(Plan::blockSize(N, bytes), Status::NoError);
        std::vector<std::byte> block(bytes);
        expectResult(Plan(N, block));
        EXPECT_EQ(Plan(N, std::span(block).first(bytes - 1)).status(), Status::SizeError);

        Plan allocated(N);
        expectResult(allocated);
        Plan moved(std::move(allocated));
        expectResult(moved);
        Plan assigned(2);
        assigned = std::move(moved);
        expectResult(assigned);
        EXPECT_EQ(moved.status(), Status::NullPointer);
        EXPECT_EQ(moved.run(x, out), Status::NullPointer);
        EXPECT_TRUE(haveSameBits(out, X)) << N;
    }
    static_assert(!std::is_copy_constructible_v<Plan> && !std::is_copy_assignable_v<Plan>);
}

TYPED_TEST(CppFace, Dct4RefusesEverySizeThatIsNoServedPowerOfTwo)
{
    using Plan = rvng::Dct4<TypeParam>;
    std::size_t bytes = 5;
    for (const std::size_t N : std::initializer_list<std::size_t>{
             0, 1, 3, 9, 17, 96, 2 * Plan::largestSize, 1L << 32, (1L << 32) + 2}) {
        Plan plan(N);
        EXPECT_FALSE(plan);
        EXPECT_EQ(plan.status(), Status::SizeError) << N;
        EXPECT_EQ(plan.size(), 0u);
        EXPECT_EQ(Plan::blockSize(N, bytes), Status::SizeError) << N;
        EXPECT_EQ(bytes, 5u);
    }
    EXPECT_EQ(Plan::blockSize(Plan::largestSize, bytes), Status::NoError);
    EXPECT_EQ(Plan().status(), Status::NullPointer);
}

TEST(CppFace, LayoutsSayWhereTheBinsLie)
{
    const auto expectLayout = []<typename L>(L, Layout layout) {
        for (int N = 2; N <= 64; ++N) {
            EXPECT_EQ(L::size(N), std::size_t(slotCount(layout, N)));
            for (int k = 0; 2 * k <= N; ++k) {
                EXPECT_EQ(L::re(k, N), std::size_t(slotOf(layout, N, k == 0 ? 0 : 2 * k - 1)));
                EXPECT_EQ(rvng::hasIm(k, N), 0 < k && 2 * k < N);
                if (rvng::hasIm(k, N)) {
                    EXPECT_EQ(L::im(k, N), std::size_t(slotOf(layout, N, 2 * k)));
                }
            }
        }
    };
    expectLayout(Ccs{}, Layout::CCS);
    expectLayout(Pack{}, Layout::InOrder);
    expectLayout(Perm{}, Layout::Perm);
    EXPECT_EQ(Ccs::im(0, 8), 1u);
    EXPECT_EQ(Ccs::im(4, 8), 9u);
}

TEST(CppFace, TheVersionIsTheLibrarys)
{
    EXPECT_EQ(&rvng::version(), rvngenGetLibVersion());
}

} // namespace

} // namespace rvn::tests
